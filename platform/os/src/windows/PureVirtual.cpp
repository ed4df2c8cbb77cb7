// Compiled into every program and library that links OrvikOs: each then has the function that the
// compiler calls for a pure virtual operation.

#include <OrvikOs/FaultScope.h>

extern "C" [[noreturn]] void __cxa_pure_virtual();

extern "C" void __cxa_pure_virtual()
{
    OrvikOs::RaisePureCall();
}
