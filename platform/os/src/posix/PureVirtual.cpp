// Compiled into every program and library that links OrvikOs: each then has the function that the
// compiler calls for a pure virtual operation, whatever the order in which libraries are searched.

#include <OrvikOs/FaultScope.h>

extern "C" [[noreturn]] void __cxa_pure_virtual();

extern "C" __attribute__((visibility("default"))) void __cxa_pure_virtual()
{
    OrvikOs::RaisePureCall();
}
