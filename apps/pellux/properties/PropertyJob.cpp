#include "properties/PropertyJob.h"

#include <OrvikCore/JobDispatcher.h>
#include <OrvikCore/JobTicket.h>
#include <OrvikOs/FpMasked.h>
#include <TambCommandsInfra/CallGate.h>
#include <TambCommandsInfra/CancelToken.h>

#include <exception>
#include <utility>

namespace Pellux {

using TambCommandsInfra::CallGate;
using TambCommandsInfra::CancelToken;

PropertyJob::PropertyJob(std::vector<PropertyQuestion> questions, Receiver receiver)
    : m_questions(std::move(questions)), m_receiver(std::move(receiver))
{
}

PropertyJob::~PropertyJob() = default;

void PropertyJob::Submit()
{
    const auto target = reinterpret_cast<long long>(static_cast<OrvikCore::IJob*>(this));
    OrvikCore::JobTicket ticket(OrvikCore::JID_EXECUTE_JOB, nullptr, /*sync=*/false, target);
    OrvikCore::JobDispatcher::Instance().ExecuteParked(ticket, shared_from_this());
}

void PropertyJob::Drop()
{
    m_isDropped.store(true, std::memory_order_release);
    const std::uint64_t number = m_jobNumber.load(std::memory_order_acquire);
    if (number != 0)
        CancelToken::Instance().Cancel(number);
}

bool PropertyJob::Execute()
{
    CancelToken& token = CancelToken::Instance();
    const std::uint64_t number = token.NextJobNumber();
    const TambCommandsInfra::CancelScope scope(token, number);
    m_jobNumber.store(number, std::memory_order_release);
    const OrvikOs::FpMasked coordinatesAreData;
    for (std::size_t i = 0; i < m_questions.size(); ++i) {
        if (m_isDropped.load(std::memory_order_acquire) || token.IsCancelled())
            return true;
        try {
            PropertyAnswer answer = m_questions[i].ask();
            if (!token.IsCancelled())
                post(i, std::move(answer));
        } catch (const TambCommandsInfra::JobCancelled&) {
            return true;
        } catch (const std::exception& error) {
            PropertyAnswer answer;
            answer.isThere = true;
            answer.value = QString::fromUtf8(error.what());
            post(i, std::move(answer));
        }
    }
    postEnd();
    return true;
}

void PropertyJob::post(std::size_t question, PropertyAnswer answer)
{
    CallGate::Post([self = shared_from_this(), question, answer = std::move(answer)] {
        if (!self->m_isDropped.load(std::memory_order_acquire))
            self->m_receiver.answered(question, answer);
    });
}

void PropertyJob::postEnd()
{
    CallGate::Post([self = shared_from_this()] {
        if (!self->m_isDropped.load(std::memory_order_acquire))
            self->m_receiver.ended();
    });
}

} // namespace Pellux
