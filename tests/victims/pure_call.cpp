// Calls a pure virtual function where no context is open.

#include "OrvikCore/IJob.h"

namespace {

class Unfinished : public OrvikCore::IJob
{
public:
    Unfinished() { callIt(this); }

private:
    static void callIt(OrvikCore::IJob* job)
    {
        OrvikCore::IJob* volatile opaque = job;
        opaque->Execute();
    }
};

class Finished : public Unfinished
{
public:
    bool Execute() override { return true; }
};

} // namespace

int main()
{
    Finished finished;
    return 0;
}
