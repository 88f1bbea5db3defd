// The measurements of controls_bench, one function per figure, each in its own source file.
// Each builds what it measures in this process and returns the median in milliseconds, or a
// negative value when a check of its result failed (said on stderr).
#pragma once

// Auto-complete over 100,000 records supplied by the owner: one typed character, sent into the
// combo's edit field, to the completed text (bench/AutoCompleteBench.cpp).
double MeasureAutoCompleteKeystroke();
