// The captured-output harness with each input repeated until the limits cut it: about a second a
// run, so kept apart from the other's thousands a second.
#define CAPTURED_FLOOD true
#include "captured_output_fuzz.cpp"
