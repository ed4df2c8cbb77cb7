#ifndef ORVIKCORE_SESSIONMGR_H
#define ORVIKCORE_SESSIONMGR_H

#include "OrvikCore/Export.h"

#include <string>
#include <vector>

namespace OrvikCore {

class AContent;
class AContentFactory;
class AContentLoader;
class AContentRendererFactory;
class AContentSaver;
class AMenuTemplate;
class ASession;
class ASessionFactory;
class ATreeRendererFactory;
class IApplication;
class IAutoComplete;
class Shell;

/// The registry of everything that lives for the whole process: the sessions and which one is
/// current, the host's application, the shell, and the factories, loaders and savers of plugins.
///
/// Owns what its fields mark as owned and deletes it in Terminate(). Created on first use of
/// Instance() and destroyed at process exit; a host calls Terminate() before. Main thread, without
/// locks; the worker reaches CurrentSession() only to print through it.
class ORVIKCORE_API SessionMgr
{
public:
    SessionMgr(const SessionMgr&) = delete;
    SessionMgr& operator=(const SessionMgr&) = delete;

    /// @return the one object of the process. Any thread may be the first to ask.
    static SessionMgr& Instance();

    // Virtual operations in slot order; append only. They are virtual so that plugins reach the
    // one object through its table.

    /// Keeps @p factory (transferred in); what it replaces is left alone.
    virtual void SetSessionFactory(ASessionFactory* factory);

    /// Keeps @p application (not owned); what it replaces is left alone.
    virtual void SetApplication(IApplication* application);

    /// @return the application or null; not owned, valid until Terminate().
    virtual IApplication* GetApplication() const;

    /// Keeps @p autoComplete (not owned; alive until Terminate()); what it replaces is left alone.
    virtual void SetAutoComplete(IAutoComplete* autoComplete);

    /// Keeps @p shell (transferred in, may be null) and deletes the one held before.
    virtual void SetShell(Shell* shell);

    /// @return the shell or null; not owned, valid until it is replaced or Terminate().
    virtual Shell* GetShell() const;

    /// @return the current session, made by CreateSession() when there is none; not owned, valid
    ///         until Terminate().
    /// @throws std::runtime_error "null ASessionFactory!" when one must be made without a factory.
    virtual ASession& CurrentSession();

    /// Keeps a copy of @p directory; "." at the start.
    virtual void SetDefaultInputDirectory(const std::wstring& directory);

    /// @return the default output directory; "." at the start.
    virtual std::wstring GetDefaultOutputDirectory() const;

    virtual ~SessionMgr();

    // Operations outside the table.

    /// Makes a session, appends it and makes it current.
    ///
    /// @return the new session; not owned, valid until Terminate().
    /// @throws std::runtime_error "null ASessionFactory!" when no factory is set.
    ASession& CreateSession();

    /// Does nothing: sessions live until Terminate().
    /// @return true.
    bool RemoveSession(ASession* session);

    /// Keeps @p menuTemplate (not owned; alive until Terminate()); what it replaces is left alone.
    void SetMenuTemplate(AMenuTemplate* menuTemplate);

    /// @return the menu template or null; not owned.
    AMenuTemplate* MenuTemplate() const;

    /// Appends the items "&Hide node" and "&Unhide node" for body nodes to the menu template;
    /// nothing without one. The items and their actions live until the process ends.
    void Activate();

    /// Each forwards its arguments unchanged to the same operation of the auto-complete object.
    /// @return its result; false when there is none.
    bool AddExtensionInfo(std::vector<std::wstring> names, std::vector<std::wstring> descriptions,
                          const std::wstring& group);
    bool AddExtensionObject(std::vector<std::wstring> names, const std::wstring& object);
    bool FindExtensions(const std::wstring& prefix, std::vector<std::wstring>& found);
    bool FindExtensionHelp(const std::wstring& name, std::wstring& help);

    /// Each appends its argument (transferred in); null is appended too.
    void AddContentFactory(AContentFactory* factory);
    void RegisterContentLoader(AContentLoader* loader);
    void RegisterContentSaver(AContentSaver* saver);

    /// Each appends its argument (transferred in) unless it is null.
    void RegisterContentRendererFactory(AContentRendererFactory* factory);
    void RegisterTreeRendererFactory(ATreeRendererFactory* factory);

    /// @return what was registered, in order, null entries included; the members are not owned.
    const std::vector<AContentFactory*>& GetContentFactoryList() const;
    const std::vector<AContentLoader*>& GetContentLoaderList() const;
    const std::vector<AContentSaver*>& GetContentSaverList() const;

    /// @return the first content factory that is not null, else null; not owned.
    AContentFactory* GetDefaultContentFactory() const;

    /// Looks for a loader by the extension of a file name.
    ///
    /// The extension is the text after the last "." (all of it without one) in upper case (ASCII
    /// letters only). Where it is a number, as in "part.stp.2", the segment before it counts.
    ///
    /// @return the first registered loader that is no importer and accepts the extension, else
    ///         null; not owned.
    AContentLoader* GetContentLoader(const std::wstring& path) const;

    /// Looks for an importer: as GetContentLoader, but an empty extension ("part.stp.") also gives
    /// way to the segment before.
    ///
    /// @return the first registered importer that accepts the extension, else null; not owned.
    AContentLoader* GetContentImporter(const std::wstring& path) const;

    /// Looks for a saver by the text after the last "." in upper case; numbers are taken as such.
    ///
    /// @return the first registered saver that can save @p content so, else null; not owned.
    AContentSaver* GetContentSaver(AContent* content, const std::wstring& path) const;

    /// @return the first factory whose name is exactly @p name, else null; not owned.
    ATreeRendererFactory* GetTreeRendererFactory(const std::string& name) const;
    AContentRendererFactory* GetContentRendererFactory(const std::string& name) const;

    /// @return the default input directory; "." at the start.
    std::wstring GetDefaultInputDirectory() const;

    /// Keeps a copy of @p directory; "." at the start.
    void SetDefaultOutputDirectory(const std::wstring& directory);

    /// Releases every registry, then the shell, then ends the application: asks it for the exit
    /// code, runs its destructor in place and forgets it. May be called more than once.
    ///
    /// @return the exit code of the application, 0 without one.
    int Terminate();

protected:
    /// Deletes the session factory, the sessions, then loaders, savers, content factories, tree
    /// renderer factories and content renderer factories. The current index stays as it is.
    void clearAll();

private:
    SessionMgr();

    int m_currentSession = -1;                        ///< Index into m_sessions; -1 when none.
    ASessionFactory* m_sessionFactory = nullptr;      ///< Owned.
    std::vector<ASession*> m_sessions;                ///< Owned, in creation order.
    std::vector<AContentFactory*> m_contentFactories; ///< Owned.
    std::vector<AContentLoader*> m_contentLoaders;    ///< Owned.
    std::vector<AContentSaver*> m_contentSavers;      ///< Owned.
    std::vector<AContentRendererFactory*> m_contentRendererFactories; ///< Owned.
    std::vector<ATreeRendererFactory*> m_treeRendererFactories;       ///< Owned.
    std::wstring m_defaultInputDirectory = L".";
    std::wstring m_defaultOutputDirectory = L".";
    IApplication* m_application = nullptr;   ///< Not owned; destroyed in place by Terminate.
    IAutoComplete* m_autoComplete = nullptr; ///< Not owned.
    Shell* m_shell = nullptr;                ///< Owned.
    AMenuTemplate* m_menuTemplate = nullptr; ///< Not owned.
};

} // namespace OrvikCore

#endif
