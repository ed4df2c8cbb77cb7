#ifndef PELLUX_PROPERTIES_PROPERTYJOB_H
#define PELLUX_PROPERTIES_PROPERTYJOB_H

#include "properties/PropertyQuestions.h"

#include <OrvikCore/IJob.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace Pellux {

/// Asks questions one after the other on the worker and posts each answer to the main thread.
/// Shared by whoever asked and the dispatcher.
class PropertyJob final : public OrvikCore::IJob, public std::enable_shared_from_this<PropertyJob>
{
public:
    /// Gets the answers. Main thread; must not throw.
    struct Receiver
    {
        std::function<void(std::size_t question, const PropertyAnswer& answer)> answered;
        std::function<void()> ended; ///< Every question is answered.
    };

    PropertyJob(std::vector<PropertyQuestion> questions, Receiver receiver);
    ~PropertyJob() override;

    PropertyJob(const PropertyJob&) = delete;
    PropertyJob& operator=(const PropertyJob&) = delete;

    /// Hands the job to the worker and returns. Main thread, while nothing runs.
    void Submit();

    /// Ends the job soon; the receiver hears nothing more. Main thread.
    void Drop();

    bool Execute() override;

private:
    void post(std::size_t question, PropertyAnswer answer);
    void postEnd();

    std::vector<PropertyQuestion> m_questions;
    Receiver m_receiver;                       ///< Main thread; not called once dropped.
    std::atomic<bool> m_isDropped{false};      ///< Written on the main thread, read on both.
    std::atomic<std::uint64_t> m_jobNumber{0}; ///< Written on the worker, read on the main thread.
};

} // namespace Pellux

#endif
