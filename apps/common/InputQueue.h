#ifndef APPSCOMMON_INPUTQUEUE_H
#define APPSCOMMON_INPUTQUEUE_H

#include <OrvikCore/IInputQueue.h>
#include <OrvikCore/KeyEventArgs.h>
#include <OrvikCore/MouseButtonEventArgs.h>
#include <OrvikCore/MouseClickEventArgs.h>
#include <OrvikCore/MouseEventArgs.h>
#include <OrvikCore/MouseWheelEventArgs.h>
#include <TambVizCore/EntityId.h>

#include <deque>
#include <functional>
#include <string>
#include <variant>

namespace Pellux {

class HotkeyTable;

/// The events that scripts have asked for, played by the host once nothing runs.
/// @thread  Main thread.
class InputQueue final : public OrvikCore::IInputQueue
{
public:
    /// How a host plays.
    struct Player
    {
        /// Asked before each event; false gives the rest up.
        std::function<bool()> goOn;
        /// Runs the script of a hotkey as if it had been typed.
        /// @return true when it ran without an error.
        std::function<bool(const std::wstring& script, const std::wstring& source)> runScript;
    };

    /// @param hotkeys       Not owned; outlives the queue.
    /// @param ensureTree    Gives the session a model tree before a menu is opened; may be empty.
    /// @param endGesture    Called when a button was let go; may be empty.
    InputQueue(const HotkeyTable& hotkeys, std::function<void()> ensureTree,
               std::function<void()> endGesture = {});
    ~InputQueue() override;

    InputQueue(const InputQueue&) = delete;
    InputQueue& operator=(const InputQueue&) = delete;

    void PostMotion(const OrvikCore::MouseEventArgs& event) override;
    void PostButton(const OrvikCore::MouseButtonEventArgs& event) override;
    void PostClick(const OrvikCore::MouseClickEventArgs& event) override;
    void PostWheel(const OrvikCore::MouseWheelEventArgs& event) override;
    void PostKey(const OrvikCore::KeyEventArgs& event) override;
    void PostMenuItem(const std::wstring& item, const TambVizCore::EntityId& entity) override;

    /// Forgets what waits.
    void Clear();

    /// Tells whether Play() is under way.
    bool IsPlaying() const { return m_isPlaying; }

    /// Hands every event to the controller of the current session; only while no job runs. The
    /// press of a hotkey runs its script, its release nothing; neither reaches the controller.
    /// What those scripts post is played after what waits already.
    ///
    /// From within itself (a script that was run by a hotkey has ended) nothing: the outer call
    /// goes on. What goes wrong is printed in the session as an error and ends the playing.
    ///
    /// @return false when something went wrong or the player gave up; the rest is forgotten.
    bool Play(const Player& player);

private:
    struct MenuChoice
    {
        std::wstring item;
        TambVizCore::EntityId entity;
    };
    using Event = std::variant<OrvikCore::MouseEventArgs, OrvikCore::MouseButtonEventArgs,
                               OrvikCore::MouseClickEventArgs, OrvikCore::MouseWheelEventArgs,
                               OrvikCore::KeyEventArgs, MenuChoice>;

    bool playAll(const Player& player);
    bool playOne(Event& event, const Player& player);
    bool playKey(OrvikCore::KeyEventArgs& event, const Player& player);
    bool playMenu(const MenuChoice& choice);

    const HotkeyTable& m_hotkeys;
    std::function<void()> m_ensureTree;
    std::function<void()> m_endGesture;
    std::deque<Event> m_events;
    bool m_isPlaying = false;
};

/// @return the queue of the application; null where there is none. Not owned.
InputQueue* CurrentInputQueue();

} // namespace Pellux

#endif
