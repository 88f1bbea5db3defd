// The measurements of controls_bench, one file per topic. Each returns the median of many
// repetitions in milliseconds, or a negative number when its check failed (with a message on
// stderr); controls_bench.cpp lists them with their targets.
#pragma once

#include <vector>

namespace ControlsBench
{
// Milliseconds from a fixed start, from the performance counter.
double NowMs();
double Median(std::vector<double> values);

// A keystroke through CLongEdit's filter, from WM_CHAR to the text it leaves: a digit that is
// accepted, and a letter that is refused and the text restored.
double LongEditDigitMs();
double LongEditLetterMs();

// CDmxCommandEdit's static parse of a command of 1,000 terms, ranges and single channels
// joined by '+', with a level: "1-5+11+21-25+...*50".
double DmxCommandParseMs();

// Auto-complete over 100,000 records supplied by the owner: one typed character, sent into the
// combo's edit field, to the completed text.
double AutoCompleteKeystrokeMs();

// A full repaint of a month calendar with an item on every shown day: colours, markers and a
// text drawn in each cell.
double CalendarPaintMs();

// A drop-down-list combo grid of 100,000 rows: opening its drop-down on a row in the middle until
// it is painted, and a typed character that finds the last row by the key column while closed.
double ComboGridOpenMs();
double ComboGridFindKeyMs();

// SortList of a list box of 50,000 entries ("Cue 00017 level 17", scrambled) by text,
// until the list holds its new order (left to repaint).
double SortListMs();
} // namespace ControlsBench
