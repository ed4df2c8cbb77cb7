#include "kernel/KernelGuard.h"

#include <OrvikOs/FaultsAsExceptions.h>
#include <OrvikOs/FpMasked.h>
#include <OrvikOs/Utf8.h>
#include <TambCommandsInfra/CancelToken.h>

#include <Standard_Failure.hxx>
#include <Standard_OutOfMemory.hxx>
#include <Standard_Type.hxx>

#include <exception>
#include <new>

namespace OrvikCad {

namespace {

std::wstring textOf(const Standard_Failure& failure)
{
    const char* text = failure.GetMessageString();
    const std::string name = failure.DynamicType()->Name();
    // The base of all failures says nothing by its name.
    if (text && *text && failure.DynamicType() == STANDARD_TYPE(Standard_Failure))
        return OrvikOs::Utf8ToWide(text);
    return OrvikOs::Utf8ToWide(text && *text ? name + ": " + text : name);
}

} // namespace

std::wstring RunGuarded(const std::function<void()>& body)
{
    const OrvikOs::FaultsAsExceptions faults;
    const OrvikOs::FpMasked masked;
    try {
        body();
        return {};
    } catch (const TambCommandsInfra::JobCancelled&) {
        throw;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const Standard_OutOfMemory&) {
        throw std::bad_alloc();
    } catch (const Standard_Failure& failure) {
        return textOf(failure);
    } catch (const std::exception& exception) {
        OrvikOs::FaultScope::RearmStackGuard();
        return OrvikOs::Utf8ToWide(exception.what());
    }
}

} // namespace OrvikCad
