#include "kernel/CadKernel.h"

#include <OrvikOs/Export.h>

extern "C" ORVIK_PLUGIN_API OrvikCad::ICadKernel* CreateCadKernel()
{
    return new OrvikCad::CadKernel();
}
