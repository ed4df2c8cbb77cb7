#include "OrvikCore/SessionMgr.h"

#include "FileExtension.h"
#include "SessionTexts.h"

#include "OrvikCore/AContentFactory.h"
#include "OrvikCore/AContentLoader.h"
#include "OrvikCore/AContentRendererFactory.h"
#include "OrvikCore/AContentSaver.h"
#include "OrvikCore/AMenuTemplate.h"
#include "OrvikCore/ASession.h"
#include "OrvikCore/ASessionFactory.h"
#include "OrvikCore/ATreeRendererFactory.h"
#include "OrvikCore/IApplication.h"
#include "OrvikCore/IAutoComplete.h"
#include "OrvikCore/MenuItem.h"
#include "OrvikCore/Shell.h"
#include "OrvikCore/TreeBuilder.h"
#include "OrvikCore/VisibilityMenuAction.h"

#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

// The factories of sessions and contents have no virtual destructor; what derives from them carries
// nothing that would need one.
#ifdef __GNUC__
#pragma GCC diagnostic ignored "-Wdelete-non-virtual-dtor"
#endif

namespace OrvikCore {

namespace {

/// The kind of tree row that stands for a body.
constexpr auto kBodyRows = static_cast<TreeBuilder::TreeItemStyles>(4);

template <typename T> void DeleteAll(std::vector<T*>& owned)
{
    for (T* object : owned) {
        delete object;
    }
    owned.clear();
}

template <typename T> T* FindByName(const std::vector<T*>& factories, const std::string& name)
{
    for (T* factory : factories) {
        if (factory->GetName() == name) {
            return factory;
        }
    }
    return nullptr;
}

AContentLoader* FindLoader(const std::vector<AContentLoader*>& loaders, bool isImporter,
                           const std::wstring& extension)
{
    for (AContentLoader* loader : loaders) {
        if (loader != nullptr && loader->IsImporter() == isImporter && loader->CanLoad(extension)) {
            return loader;
        }
    }
    return nullptr;
}

/// An item of the context menu with its action.
struct VisibilityItem
{
    VisibilityItem(const wchar_t* text, bool visible)
        : action(visible), item(text, &action, kBodyRows)
    {
    }

    VisibilityMenuAction action;
    MenuItem item;
};

/// A template owns no items, and a host may keep one for longer than its sessions.
void AddVisibilityItem(AMenuTemplate& menuTemplate, const wchar_t* text, bool visible)
{
    static auto& items = *new std::vector<std::unique_ptr<VisibilityItem>>;
    items.push_back(std::make_unique<VisibilityItem>(text, visible));
    menuTemplate.AddMenuItem(&items.back()->item);
}

} // namespace

SessionMgr& SessionMgr::Instance()
{
    static SessionMgr instance;
    return instance;
}

SessionMgr::SessionMgr() : m_sessionFactory(new ASessionFactory) {}

SessionMgr::~SessionMgr()
{
    Terminate();
    m_currentSession = -1;
    m_autoComplete = nullptr;
    m_menuTemplate = nullptr;
}

void SessionMgr::SetSessionFactory(ASessionFactory* factory)
{
    // Deliberate: the factory that is replaced is not deleted.
    // Held by SessionMgr.SetSessionFactoryDeletesNothing.
    m_sessionFactory = factory;
}

void SessionMgr::SetApplication(IApplication* application)
{
    // Deliberate: the application that is replaced is left alone.
    // Held by SessionMgr.SetApplicationLeavesTheOneBeforeAlone.
    m_application = application;
}

IApplication* SessionMgr::GetApplication() const
{
    return m_application;
}

void SessionMgr::SetAutoComplete(IAutoComplete* autoComplete)
{
    m_autoComplete = autoComplete;
}

void SessionMgr::SetShell(Shell* shell)
{
    // The shell that ends still finds itself through GetShell while its last job runs.
    delete m_shell;
    m_shell = shell;
}

Shell* SessionMgr::GetShell() const
{
    return m_shell;
}

ASession& SessionMgr::CurrentSession()
{
    if (m_currentSession >= 0 && static_cast<std::size_t>(m_currentSession) < m_sessions.size()) {
        return *m_sessions[static_cast<std::size_t>(m_currentSession)];
    }
    return CreateSession();
}

void SessionMgr::SetDefaultInputDirectory(const std::wstring& directory)
{
    m_defaultInputDirectory = directory;
}

std::wstring SessionMgr::GetDefaultOutputDirectory() const
{
    return m_defaultOutputDirectory;
}

ASession& SessionMgr::CreateSession()
{
    if (m_sessionFactory == nullptr) {
        throw std::runtime_error(kNullSessionFactory);
    }
    m_sessions.push_back(m_sessionFactory->CreateSession());
    m_currentSession = static_cast<int>(m_sessions.size()) - 1;
    return *m_sessions.back();
}

bool SessionMgr::RemoveSession(ASession*)
{
    // Deliberate: sessions live until Terminate. Held by SessionMgr.RemoveSessionKeepsTheSession.
    return true;
}

void SessionMgr::SetMenuTemplate(AMenuTemplate* menuTemplate)
{
    m_menuTemplate = menuTemplate;
}

AMenuTemplate* SessionMgr::MenuTemplate() const
{
    return m_menuTemplate;
}

void SessionMgr::Activate()
{
    if (m_menuTemplate != nullptr) {
        AddVisibilityItem(*m_menuTemplate, kHideNode, /*visible=*/false);
        AddVisibilityItem(*m_menuTemplate, kUnhideNode, /*visible=*/true);
    }
}

bool SessionMgr::AddExtensionInfo(std::vector<std::wstring> names,
                                  std::vector<std::wstring> descriptions, const std::wstring& group)
{
    return m_autoComplete != nullptr &&
           m_autoComplete->AddExtensionInfo(std::move(names), std::move(descriptions), group);
}

bool SessionMgr::AddExtensionObject(std::vector<std::wstring> names, const std::wstring& object)
{
    return m_autoComplete != nullptr &&
           m_autoComplete->AddExtensionObject(std::move(names), object);
}

bool SessionMgr::FindExtensions(const std::wstring& prefix, std::vector<std::wstring>& found)
{
    return m_autoComplete != nullptr && m_autoComplete->FindExtensions(prefix, found);
}

bool SessionMgr::FindExtensionHelp(const std::wstring& name, std::wstring& help)
{
    return m_autoComplete != nullptr && m_autoComplete->FindExtensionHelp(name, help);
}

void SessionMgr::AddContentFactory(AContentFactory* factory)
{
    m_contentFactories.push_back(factory);
}

void SessionMgr::RegisterContentLoader(AContentLoader* loader)
{
    m_contentLoaders.push_back(loader);
}

void SessionMgr::RegisterContentSaver(AContentSaver* saver)
{
    m_contentSavers.push_back(saver);
}

void SessionMgr::RegisterContentRendererFactory(AContentRendererFactory* factory)
{
    if (factory != nullptr) {
        m_contentRendererFactories.push_back(factory);
    }
}

void SessionMgr::RegisterTreeRendererFactory(ATreeRendererFactory* factory)
{
    if (factory != nullptr) {
        m_treeRendererFactories.push_back(factory);
    }
}

const std::vector<AContentFactory*>& SessionMgr::GetContentFactoryList() const
{
    return m_contentFactories;
}

const std::vector<AContentLoader*>& SessionMgr::GetContentLoaderList() const
{
    return m_contentLoaders;
}

const std::vector<AContentSaver*>& SessionMgr::GetContentSaverList() const
{
    return m_contentSavers;
}

AContentFactory* SessionMgr::GetDefaultContentFactory() const
{
    for (AContentFactory* factory : m_contentFactories) {
        if (factory != nullptr) {
            return factory;
        }
    }
    return nullptr;
}

AContentLoader* SessionMgr::GetContentLoader(const std::wstring& path) const
{
    // Deliberate: a number at the end gives way, an empty extension does not.
    // Held by SessionMgr.LoaderIsAskedWithAnEmptyExtensionForAPathThatEndsInAPoint.
    return FindLoader(m_contentLoaders, /*isImporter=*/false,
                      FileExtension(path, NumberedCopies::Skipped));
}

AContentLoader* SessionMgr::GetContentImporter(const std::wstring& path) const
{
    // Deliberate: here an empty extension gives way too.
    // Held by SessionMgr.ImporterIsAskedWithTheSegmentBeforeAPointAtTheEnd.
    return FindLoader(m_contentLoaders, /*isImporter=*/true,
                      FileExtension(path, NumberedCopies::SkippedOrEmpty));
}

AContentSaver* SessionMgr::GetContentSaver(AContent* content, const std::wstring& path) const
{
    // Deliberate: numbers are extensions here. Held by SessionMgr.SaverIsAskedWithANumberAsItIs.
    const std::wstring extension = FileExtension(path, NumberedCopies::Kept);
    for (AContentSaver* saver : m_contentSavers) {
        if (saver != nullptr && saver->CanSave(content, extension)) {
            return saver;
        }
    }
    return nullptr;
}

ATreeRendererFactory* SessionMgr::GetTreeRendererFactory(const std::string& name) const
{
    return FindByName(m_treeRendererFactories, name);
}

AContentRendererFactory* SessionMgr::GetContentRendererFactory(const std::string& name) const
{
    return FindByName(m_contentRendererFactories, name);
}

std::wstring SessionMgr::GetDefaultInputDirectory() const
{
    return m_defaultInputDirectory;
}

void SessionMgr::SetDefaultOutputDirectory(const std::wstring& directory)
{
    m_defaultOutputDirectory = directory;
}

int SessionMgr::Terminate()
{
    clearAll();
    SetShell(nullptr);
    if (m_application == nullptr) {
        return 0;
    }
    const int exitCode = m_application->Shutdown();
    // The host owns the storage, so only the destructor is run.
    m_application->~IApplication();
    m_application = nullptr;
    return exitCode;
}

void SessionMgr::clearAll()
{
    delete m_sessionFactory;
    m_sessionFactory = nullptr;

    // Deliberate: the current index stays. Held by SessionMgr.SessionAfterTerminateIsRefused.
    for (ASession* session : m_sessions) {
        session->SetOutputObserver(nullptr);
        session->SetViewTree(nullptr);
        delete session;
    }
    m_sessions.clear();

    DeleteAll(m_contentLoaders);
    DeleteAll(m_contentSavers);
    DeleteAll(m_contentFactories);
    DeleteAll(m_treeRendererFactories);
    DeleteAll(m_contentRendererFactories);
}

} // namespace OrvikCore
