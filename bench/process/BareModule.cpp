// The one module that the bare process loads.

extern "C" int Answer() { return 0; }
