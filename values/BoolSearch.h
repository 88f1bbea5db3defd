// CBoolSearch: matches texts against a search expression of words, phrases and boolean
// operators. The grid's find matches every cell with it, so the expression is compiled once by
// InitSearch and Search only walks the compiled form.
//
// Grammar (operators by rising precedence OR, AND, NOT; AND and OR associate to the left):
//   expression := or-expr
//   or-expr    := and-expr { OR and-expr }
//   and-expr   := not-expr { [AND] not-expr }     adjacent terms mean AND
//   not-expr   := NOT not-expr | primary
//   primary    := word | "quoted phrase" | ( or-expr )
// - A word is a run of characters other than blanks (space, tab, CR, LF), parentheses and
//   double quotes. The words AND, OR and NOT in any letter case are the operators; quoted,
//   "and" is a term like any other.
// - A phrase is everything between two double quotes, blanks included, matched as it stands.
// - InitSearch refuses an empty expression, an empty phrase "", an unterminated quote,
//   unbalanced parentheses (an empty pair "()" too) and an operator without its operand.
//   A refused expression also drops the previous one: Search then answers FALSE.
//
// Matching of a term against a text:
// - Case-insensitive by default (ASCII letters only); SetMatchCase(TRUE) compares bytes.
// - With SetTextSearchIsContains(TRUE) (the default) a term matches when the text contains
//   it. With FALSE it must stand as a whole word: some occurrence has no word character
//   directly before or after it, a word character being an ASCII letter, a digit, '_' or any
//   byte from 128 up. So "cat" matches "the cat." but not "cats", and "-5" does not match "a-5".
// Both switches may be changed after InitSearch; the next Search uses them.
//
// Nesting depth is unlimited: the expression is compiled without recursion into postfix form
// and evaluated over a stack sized at InitSearch, so Search allocates nothing.
#pragma once

#include <afx.h>
#include <afxtempl.h>

class AFX_EXT_CLASS CBoolSearch
{
public:
    CBoolSearch();

    void SetMatchCase(BOOL bMatchCase) { m_bMatchCase = bMatchCase; }
    BOOL GetMatchCase() const { return m_bMatchCase; }
    void SetTextSearchIsContains(BOOL bContains) { m_bContains = bContains; }
    BOOL GetTextSearchIsContains() const { return m_bContains; }

    // TRUE when the expression parses; a null expression is refused like an empty one.
    BOOL InitSearch(LPCTSTR lpszExpression);
    // FALSE before a successful InitSearch and for a null text.
    BOOL Search(LPCTSTR lpszText);

private:
    struct CTerm
    {
        CString strText;   // as typed, for a case-sensitive search
        CString strFolded; // lower case, for a case-insensitive one
    };

    void Reset();
    BOOL MatchTerm(const CTerm& term, LPCTSTR lpszText, size_t nTextLength) const;

    CArray<CTerm> m_aTerms;
    // Postfix program: a term index (>= 0) or one of the negative operator codes.
    CArray<int, int> m_aProgram;
    // Evaluation stack, as deep as the program needs.
    CArray<BYTE, BYTE> m_aStack;
    BOOL m_bMatchCase;
    BOOL m_bContains;
};
