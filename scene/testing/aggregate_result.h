#pragma once

// Defines an operation of a Direct2D interface that returns a structure by value. Compilers for Windows
// differ in where they pass the room for it; MinGW's headers then declare the operation with an explicit
// pointer.
#if defined(WIDL_EXPLICIT_AGGREGATE_RETURNS)
#define MOSSHARBOUR_AGGREGATE_RESULT(type, name, value)           \
    type* STDMETHODCALLTYPE name(type* returned) const override { \
        *returned = value;                                        \
        return returned;                                          \
    }
#else
#define MOSSHARBOUR_AGGREGATE_RESULT(type, name, value) \
    type STDMETHODCALLTYPE name() const override {      \
        return value;                                   \
    }
#endif
