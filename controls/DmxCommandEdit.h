// CDmxCommandEdit: a typed edit for a lighting command, channels and ranges with a level such
// as "1-10+15*50" (the grammar is CDmxCommand's). The value is the list of channels and the
// level. While typing, only characters a command can hold get through, and a command begun with
// the level operator ('*' or '@') recalls the last valid command with its level selected, so
// that the user types only a new level for the same channels.
#pragma once

#include <afxcoll.h>

#include "controls/StringEdit.h"

class AFX_EXT_CLASS CDmxCommandEdit : public CStringEdit
{
    DECLARE_DYNAMIC(CDmxCommandEdit)
public:
    CDmxCommandEdit();

    // The parser (CDmxCommand::Parse): strText is its scan buffer and keeps only its text
    // before the first operator; a command that parses becomes the last valid command.
    static int ValidateAndGet(CString& strText, CUIntArray& aChannels, long* plLevel, long lFlags);
    // "Invalid Syntax" when the text does not parse.
    int ValidateAndGet(CUIntArray& aChannels, long* plLevel, CDataExchange* pDX);
    int GetValue(CUIntArray& aChannels, long* plLevel);
    // Parses into the control's own channels and level.
    int Validate() override;
    int DynamicValidate() override;
    using CStringEdit::SetWindowText;
    // Keeps the text only when the typing check takes it; otherwise the previous text stays.
    void SetWindowText(CString& strText);
    // A command without a level means level 100.
    void SetAutoFullValueFlag(bool bAutoFull);

protected:
    long m_lLevel;
    CUIntArray m_aChannels;
    int m_nFlags;
};
