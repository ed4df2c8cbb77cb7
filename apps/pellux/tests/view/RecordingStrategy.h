#ifndef PELLUX_TESTS_RECORDINGSTRATEGY_H
#define PELLUX_TESTS_RECORDINGSTRATEGY_H

#include <OrvikCore/Input2OpStrategy.h>
#include <OrvikCore/KeyEventArgs.h>
#include <OrvikCore/MouseButtonEventArgs.h>
#include <OrvikCore/MouseClickEventArgs.h>
#include <OrvikCore/MouseEventArgs.h>
#include <OrvikCore/MouseWheelEventArgs.h>

#include <functional>
#include <sstream>
#include <string>
#include <vector>

/// Writes down what a controller was given, and makes no operation of it.
class RecordingStrategy final : public OrvikCore::Input2OpStrategy
{
public:
    /// @param seen     Receives a line for each event; outlives the strategy, as does what follows.
    /// @param onEvent  Called with each event.
    RecordingStrategy(std::vector<std::string>& seen, std::function<void()>& onEvent)
        : Input2OpStrategy(nullptr), m_seen(seen), m_onEvent(onEvent)
    {
    }

    bool ConvertWindowEvent(OrvikCore::KeyEventArgs* event) override
    {
        std::ostringstream line;
        line << "key 0x" << std::hex << event->Key() << (event->IsKeyUp() ? " up" : " down")
             << std::dec << " mods " << static_cast<int>(event->ModifierKeys());
        return note(line);
    }

    bool ConvertWindowEvent(OrvikCore::MouseWheelEventArgs* event) override
    {
        std::ostringstream line;
        line << "wheel " << event->Delta() << ' ' << event->X() << ' ' << event->Y();
        return note(line);
    }

    bool ConvertWindowEvent(OrvikCore::MouseClickEventArgs* event) override
    {
        std::ostringstream line;
        line << "click " << static_cast<int>(event->GetMouseButton()) << " x" << event->Clicks()
             << ' ' << event->X() << ' ' << event->Y() << " mods "
             << static_cast<int>(event->ModifierKeys());
        return note(line);
    }

    bool ConvertWindowEvent(OrvikCore::MouseButtonEventArgs* event) override
    {
        std::ostringstream line;
        line << (event->IsPressed() ? "press " : "release ")
             << static_cast<int>(event->GetMouseButtons()) << ' ' << event->X() << ' ' << event->Y()
             << " mods " << static_cast<int>(event->ModifierKeys());
        return note(line);
    }

    bool ConvertWindowEvent(OrvikCore::MouseEventArgs* event) override
    {
        std::ostringstream line;
        if (event->GetMouseAction() == OrvikCore::MouseAction::HoverEnded)
            line << "hover ended " << event->X() << ' ' << event->Y();
        else
            line << "move " << static_cast<int>(event->GetMouseButtons()) << ' ' << event->X()
                 << ' ' << event->Y() << " mods " << static_cast<int>(event->ModifierKeys());
        return note(line);
    }

private:
    bool note(const std::ostringstream& line)
    {
        m_seen.push_back(line.str());
        if (m_onEvent)
            m_onEvent();
        return false;
    }

    std::vector<std::string>& m_seen;
    std::function<void()>& m_onEvent;
};

#endif
