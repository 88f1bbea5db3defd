#include "values/BoolSearch.h"

#include <string.h>

namespace
{
// Operator codes of the postfix program; OP_OPEN only ever stands on the operator stack.
const int OP_OR = -1;
const int OP_AND = -2;
const int OP_NOT = -3;
const int OP_OPEN = -4;

enum TOKEN
{
    TOKEN_END,
    TOKEN_TERM,
    TOKEN_AND,
    TOKEN_OR,
    TOKEN_NOT,
    TOKEN_OPEN,
    TOKEN_CLOSE,
    TOKEN_ERROR
};

bool IsBlank(TCHAR ch)
{
    return ch == ' ' || ch == '\t' || ch == '\r' || ch == '\n';
}

bool IsWordChar(BYTE ch)
{
    return (ch >= 'a' && ch <= 'z') || (ch >= 'A' && ch <= 'Z') || (ch >= '0' && ch <= '9') ||
           ch == '_' || ch >= 128;
}

// ASCII only, so that the answer does not depend on the C locale.
BYTE FoldByte(BYTE ch)
{
    return ch >= 'A' && ch <= 'Z' ? static_cast<BYTE>(ch - 'A' + 'a') : ch;
}

int Precedence(int nOperator)
{
    switch (nOperator)
    {
    case OP_OR:
        return 1;
    case OP_AND:
        return 2;
    case OP_NOT:
        return 3;
    default:
        return 0;
    }
}

// Reads the token at p and moves past it; a term's text goes to strTerm.
TOKEN NextToken(LPCTSTR& p, CString& strTerm)
{
    while (IsBlank(*p))
        ++p;
    switch (*p)
    {
    case '\0':
        return TOKEN_END;
    case '(':
        ++p;
        return TOKEN_OPEN;
    case ')':
        ++p;
        return TOKEN_CLOSE;
    case '"':
    {
        LPCTSTR lpszStart = ++p;
        while (*p != '\0' && *p != '"')
            ++p;
        if (*p == '\0' || p == lpszStart)
            return TOKEN_ERROR;
        strTerm = CString(lpszStart, static_cast<int>(p - lpszStart));
        ++p;
        return TOKEN_TERM;
    }
    default:
        break;
    }
    LPCTSTR lpszStart = p;
    while (*p != '\0' && !IsBlank(*p) && *p != '(' && *p != ')' && *p != '"')
        ++p;
    strTerm = CString(lpszStart, static_cast<int>(p - lpszStart));
    if (strTerm.CompareNoCase("AND") == 0)
        return TOKEN_AND;
    if (strTerm.CompareNoCase("OR") == 0)
        return TOKEN_OR;
    if (strTerm.CompareNoCase("NOT") == 0)
        return TOKEN_NOT;
    return TOKEN_TERM;
}

bool SameAt(const BYTE* pText, const BYTE* pTerm, size_t nTermLength, bool bFold)
{
    for (size_t i = 0; i < nTermLength; ++i)
    {
        BYTE ch = bFold ? FoldByte(pText[i]) : pText[i];
        if (ch != pTerm[i])
            return false;
    }
    return true;
}
} // namespace

CBoolSearch::CBoolSearch() : m_bMatchCase(FALSE), m_bContains(TRUE)
{
}

void CBoolSearch::Reset()
{
    m_aTerms.RemoveAll();
    m_aProgram.RemoveAll();
    m_aStack.RemoveAll();
}

BOOL CBoolSearch::InitSearch(LPCTSTR lpszExpression)
{
    Reset();
    if (lpszExpression == NULL)
        return FALSE;

    CArray<int, int> aOperators;
    int nDepth = 0;
    int nMaxDepth = 0;
    auto emit = [&](int nCode) {
        m_aProgram.Add(nCode);
        if (nCode >= 0)
        {
            if (++nDepth > nMaxDepth)
                nMaxDepth = nDepth;
        }
        else if (nCode != OP_NOT)
            --nDepth;
    };
    auto popOperator = [&]() {
        int nOperator = aOperators[aOperators.GetUpperBound()];
        aOperators.RemoveAt(aOperators.GetUpperBound());
        return nOperator;
    };
    auto pushBinary = [&](int nOperator) {
        while (!aOperators.IsEmpty() &&
               Precedence(aOperators[aOperators.GetUpperBound()]) >= Precedence(nOperator))
            emit(popOperator());
        aOperators.Add(nOperator);
    };
    // Pops operators down to the innermost open parenthesis and drops it; false when none.
    auto closeGroup = [&]() {
        while (!aOperators.IsEmpty())
        {
            int nOperator = popOperator();
            if (nOperator == OP_OPEN)
                return true;
            emit(nOperator);
        }
        return false;
    };

    LPCTSTR p = lpszExpression;
    CString strTerm;
    bool bExpectOperand = true;
    for (;;)
    {
        TOKEN token = NextToken(p, strTerm);
        if (!bExpectOperand && (token == TOKEN_TERM || token == TOKEN_OPEN || token == TOKEN_NOT))
        {
            pushBinary(OP_AND); // adjacent terms
            bExpectOperand = true;
        }
        bool bOk = true;
        switch (token)
        {
        case TOKEN_TERM:
        {
            CTerm term;
            term.strText = strTerm;
            term.strFolded = strTerm;
            for (int i = 0; i < strTerm.GetLength(); ++i)
                term.strFolded.SetAt(i, static_cast<TCHAR>(FoldByte(static_cast<BYTE>(strTerm[i]))));
            emit(static_cast<int>(m_aTerms.Add(term)));
            bExpectOperand = false;
            break;
        }
        case TOKEN_OPEN:
            aOperators.Add(OP_OPEN);
            break;
        case TOKEN_NOT:
            aOperators.Add(OP_NOT); // prefix: nothing before it is complete yet
            break;
        case TOKEN_AND:
        case TOKEN_OR:
            bOk = !bExpectOperand;
            if (bOk)
                pushBinary(token == TOKEN_AND ? OP_AND : OP_OR);
            bExpectOperand = true;
            break;
        case TOKEN_CLOSE:
            bOk = !bExpectOperand && closeGroup();
            break;
        case TOKEN_END:
            bOk = !bExpectOperand && !closeGroup();
            break;
        case TOKEN_ERROR:
            bOk = false;
            break;
        }
        if (!bOk)
        {
            Reset();
            return FALSE;
        }
        if (token == TOKEN_END)
            break;
    }
    m_aStack.SetSize(nMaxDepth);
    return TRUE;
}

BOOL CBoolSearch::Search(LPCTSTR lpszText)
{
    if (lpszText == NULL || m_aProgram.IsEmpty())
        return FALSE;
    size_t nTextLength = strlen(lpszText);
    const int* pProgram = m_aProgram.GetData();
    const CTerm* pTerms = m_aTerms.GetData();
    BYTE* pStack = m_aStack.GetData();
    INT_PTR nTop = 0;
    for (INT_PTR i = 0, nCount = m_aProgram.GetSize(); i < nCount; ++i)
    {
        int nCode = pProgram[i];
        if (nCode >= 0)
            pStack[nTop++] = MatchTerm(pTerms[nCode], lpszText, nTextLength) ? 1 : 0;
        else if (nCode == OP_NOT)
            pStack[nTop - 1] = !pStack[nTop - 1];
        else
        {
            --nTop;
            if (nCode == OP_AND)
                pStack[nTop - 1] = pStack[nTop - 1] && pStack[nTop];
            else
                pStack[nTop - 1] = pStack[nTop - 1] || pStack[nTop];
        }
    }
    return pStack[0];
}

BOOL CBoolSearch::MatchTerm(const CTerm& term, LPCTSTR lpszText, size_t nTextLength) const
{
    const CString& strTerm = m_bMatchCase ? term.strText : term.strFolded;
    size_t nTermLength = static_cast<size_t>(strTerm.GetLength());
    if (nTermLength > nTextLength)
        return FALSE;
    const BYTE* pText = reinterpret_cast<const BYTE*>(lpszText);
    const BYTE* pTerm = reinterpret_cast<const BYTE*>(static_cast<LPCTSTR>(strTerm));
    bool bFold = !m_bMatchCase;
    for (size_t i = 0; i + nTermLength <= nTextLength; ++i)
    {
        if (!SameAt(pText + i, pTerm, nTermLength, bFold))
            continue;
        if (m_bContains)
            return TRUE;
        size_t nEnd = i + nTermLength;
        if ((i == 0 || !IsWordChar(pText[i - 1])) && (nEnd == nTextLength || !IsWordChar(pText[nEnd])))
            return TRUE;
    }
    return FALSE;
}
