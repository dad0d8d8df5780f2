// The one module that the bare process loads.

extern "C" __attribute__((visibility("default"))) int Answer() { return 0; }
