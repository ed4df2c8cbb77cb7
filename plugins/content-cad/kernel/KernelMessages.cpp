#include "kernel/KernelMessages.h"

#include <OrvikOs/Utf8.h>

#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <Message_Printer.hxx>

#include <iostream>
#include <mutex>
#include <thread>

namespace OrvikCad {

namespace {

constexpr std::size_t kMaxKept = 200;

/// What the printer keeps; leaked, because the kernel's messenger outlives static destructors.
struct Kept
{
    std::mutex mutex;
    bool isCapturing = false;
    std::vector<std::wstring> texts;
};

Kept& kept()
{
    static auto* const instance = new Kept();
    return *instance;
}

/// Leaves out the stars, dots and blanks that the kernel puts around its texts.
std::string undecorated(const char* text)
{
    const std::string whole(text);
    constexpr const char* kDecoration = "* .\n\r\t";
    const std::size_t first = whole.find_first_not_of(kDecoration);
    if (first == std::string::npos)
        return {};
    return whole.substr(first, whole.find_last_not_of(kDecoration) - first + 1);
}

class KeepingPrinter final : public Message_Printer
{
protected:
    void send(const TCollection_AsciiString& text, const Message_Gravity gravity) const override
    {
        if (gravity < Message_Alarm)
            return;
        const std::string bare = undecorated(text.ToCString());
        Kept& all = kept();
        const std::lock_guard<std::mutex> lock(all.mutex);
        if (all.isCapturing && !bare.empty() && all.texts.size() < kMaxKept)
            all.texts.push_back(OrvikOs::Utf8ToWide(bare));
    }
};

} // namespace

KernelMessages::KernelMessages()
{
    SilenceKernel();
    const std::lock_guard<std::mutex> lock(kept().mutex);
    kept().texts.clear();
    kept().isCapturing = true;
}

KernelMessages::~KernelMessages()
{
    const std::lock_guard<std::mutex> lock(kept().mutex);
    kept().isCapturing = false;
}

std::vector<std::wstring> KernelMessages::Failures() const
{
    const std::lock_guard<std::mutex> lock(kept().mutex);
    return kept().texts;
}

void KernelMessages::SilenceKernel()
{
    static const bool isSilenced = [] {
        Message::DefaultMessenger()->ChangePrinters().Clear();
        Message::DefaultMessenger()->AddPrinter(new KeepingPrinter());
        return true;
    }();
    static_cast<void>(isSilenced);
}

/// Hands on what other threads write.
class SilencedThread::Filter final : public std::streambuf
{
public:
    explicit Filter(std::streambuf* target) : m_target(target) {}

protected:
    int_type overflow(int_type character) override
    {
        if (isSilenced() || traits_type::eq_int_type(character, traits_type::eof()))
            return traits_type::not_eof(character);
        return m_target->sputc(traits_type::to_char_type(character));
    }

    std::streamsize xsputn(const char* text, std::streamsize count) override
    {
        return isSilenced() ? count : m_target->sputn(text, count);
    }

    int sync() override { return isSilenced() ? 0 : m_target->pubsync(); }

private:
    bool isSilenced() const { return std::this_thread::get_id() == m_silenced; }

    std::streambuf* m_target; ///< Not owned.
    std::thread::id m_silenced = std::this_thread::get_id();
};

SilencedThread::SilencedThread()
    : m_filter(std::make_unique<Filter>(std::cout.rdbuf())), m_former(std::cout.rdbuf())
{
    std::cout.rdbuf(m_filter.get());
}

SilencedThread::~SilencedThread()
{
    std::cout.rdbuf(m_former);
}

} // namespace OrvikCad
