// The order of version texts that are no dotted numbers: byte by byte, with runs of digits compared as numbers.
#ifndef VALUES_VERSION_TEXT_RULE_H
#define VALUES_VERSION_TEXT_RULE_H

// Negative, zero or positive as `a` comes before `b`, is the same or comes behind it.  Both are zero-terminated and
// compared as unsigned bytes.  Of two numbers the one with more digits is the greater; a number with more leading zeros
// is the lesser ("1.05" before "1.5").  The order is total: the result is zero for equal texts alone.
//
// Close to the system library's strverscmp and not the same: here "010" is greater than "09".
int CompareVersionTexts(const char* a, const char* b);

#endif
