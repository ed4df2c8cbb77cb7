#ifndef APPSCOMMON_NAVIGATION_H
#define APPSCOMMON_NAVIGATION_H

#include "BandEcho.h"
#include "NavigationTable.h"

#include <OrvikCore/IControllerListener.h>
#include <OrvikCore/INavigation.h>
#include <TambVizCore/EntityId.h>

#include <memory>
#include <string>
#include <vector>

namespace OrvikCore {
class Controller;
}

namespace Pellux {

class ConfigurationFile;
struct NavigationState;

/// Chooses the strategy of a controller: the core's own ("default"), a preset, or the table of the
/// configuration ("custom"); lets a rubber band that adds keep what was selected before it, and
/// prints what a band has done as a command.
///
/// The configuration's section [navigation] has a key "preset", the name of what holds at the
/// start, and rows: "Ctrl-left" = "pan" and the like. Rows lie over the preset's and make the table
/// "custom", which then holds at the start; over the default they stand alone.
///
/// Outlives the controllers that it is attached to. @thread  Main thread.
class Navigation final : public OrvikCore::INavigation, public OrvikCore::IControllerListener
{
public:
    Navigation();
    ~Navigation() override;

    Navigation(const Navigation&) = delete;
    Navigation& operator=(const Navigation&) = delete;

    /// Reads the section [navigation].
    ///
    /// @param errorText  Gets a line "<path>:<line>:<column>: <reason>" for each mistake.
    /// @return false when there was an error.
    bool Read(ConfigurationFile& configuration, std::wstring& errorText);

    /// Gives a controller (not owned) the strategy that holds, now and whenever it changes.
    void Attach(OrvikCore::Controller& controller);

    /// Forgets the controller: before its view ends.
    void Detach();

    std::vector<std::wstring> ListNavigations() const override;
    std::wstring GetNavigation() const override;
    bool SetNavigation(const std::wstring& name) override;
    bool SetRows(const std::vector<std::pair<std::wstring, std::wstring>>& rows,
                 const std::wstring& preset, std::wstring& errorText) override;

    /// After the view: joins what an adding rubber band has found with what was selected before,
    /// and prints the command that selects the same.
    void ControllerNotify(OrvikCore::IViewOp* op) override;

private:
    const NavigationTable* findTable(const std::wstring& name) const;
    void apply();

    std::wstring m_name = L"default";
    NavigationTable m_custom;
    bool m_hasCustom = false;
    OrvikCore::Controller* m_controller = nullptr; ///< Not owned.
    std::shared_ptr<NavigationState> m_state;
    BandEcho m_echo;
    std::vector<TambVizCore::EntityId> m_before; ///< Selected when the rubber band began.
};

} // namespace Pellux

#endif
