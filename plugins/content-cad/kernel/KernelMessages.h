#ifndef ORVIKCAD_KERNEL_KERNELMESSAGES_H
#define ORVIKCAD_KERNEL_KERNELMESSAGES_H

#include <memory>
#include <streambuf>
#include <string>
#include <vector>

namespace OrvikCad {

/// While alive, keeps what the kernel has to complain of; nothing reaches standard output.
///
/// The kernel has one messenger for the process, so there is one capture at a time: a document is
/// read or written by one thread. What threads of a parallel loop send is kept as well. Texts that
/// come while there is no capture are dropped.
class KernelMessages
{
public:
    KernelMessages();
    ~KernelMessages();
    KernelMessages(const KernelMessages&) = delete;
    KernelMessages& operator=(const KernelMessages&) = delete;

    /// @return the alarms and failures so far, in order, without the kernel's decoration.
    std::vector<std::wstring> Failures() const;

    /// Takes the kernel's own printers, which write to standard output, away for good.
    static void SilenceKernel();
};

/// While alive, drops what the calling thread writes to std::cout; some readers of the kernel know
/// no messenger. Other threads write as ever.
class SilencedThread
{
public:
    SilencedThread();
    ~SilencedThread();
    SilencedThread(const SilencedThread&) = delete;
    SilencedThread& operator=(const SilencedThread&) = delete;

private:
    class Filter;
    std::unique_ptr<Filter> m_filter;
    std::streambuf* m_former; ///< Not owned; put back at the end.
};

} // namespace OrvikCad

#endif
