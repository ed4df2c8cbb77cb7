#include "OrvikCore/SessionMgr.h"

#include "FakeApplication.h"
#include "FakeSession.h"
#include "VirtualSlot.h"

#include "OrvikCore/AContentFactory.h"
#include "OrvikCore/AContentLoader.h"
#include "OrvikCore/AContentRendererFactory.h"
#include "OrvikCore/AContentSaver.h"
#include "OrvikCore/AMenuTemplate.h"
#include "OrvikCore/ATreeRendererFactory.h"
#include "OrvikCore/IAutoComplete.h"
#include "OrvikCore/MenuItem.h"
#include "OrvikCore/VisibilityMenuAction.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <new>
#include <stdexcept>
#include <type_traits>

namespace {

using Calls = std::vector<std::string>;
using Texts = std::vector<std::wstring>;

OrvikCore::SessionMgr& manager()
{
    return OrvikCore::SessionMgr::Instance();
}

/// What the fakes of one test log; empty at its start, one process per test.
Calls& calls()
{
    static Calls log;
    return log;
}

/// A session that logs what its end asks of it.
class EndingSession : public FakeSession
{
public:
    explicit EndingSession(int id) : FakeSession(id), m_name("session " + std::to_string(id)) {}
    ~EndingSession() override { calls().push_back(m_name + " deleted"); }

    void SetOutputObserver(OrvikCore::ISessionObserver* observer) override
    {
        calls().push_back(m_name + (observer == nullptr ? " observer null" : " observer set"));
        FakeSession::SetOutputObserver(observer);
    }
    void SetViewTree(OrvikCore::AViewTree* viewTree) override
    {
        calls().push_back(m_name + (viewTree == nullptr ? " tree null" : " tree set"));
        FakeSession::SetViewTree(viewTree);
    }

private:
    std::string m_name;
};

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

class EndingSessionFactory final : public OrvikCore::ASessionFactory
{
public:
    OrvikCore::ASession* CreateSession() override { return new EndingSession(GetNextId()); }
};

class FakeSessionFactory final : public OrvikCore::ASessionFactory
{
public:
    OrvikCore::ASession* CreateSession() override { return new FakeSession(GetNextId()); }
};

class PlainContentFactory final : public OrvikCore::AContentFactory
{
public:
    OrvikCore::AContent* CreateContent(OrvikCore::Document&) override { return nullptr; }
};

#pragma GCC diagnostic pop

/// Puts a factory in place of the one that the manager started with, which it frees first.
void install(OrvikCore::ASessionFactory* factory)
{
    manager().Terminate();
    manager().SetSessionFactory(factory);
}

class EndingLoader : public OrvikCore::AContentLoader
{
public:
    ~EndingLoader() override { calls().push_back("loader deleted"); }

private:
    bool canLoad(const std::wstring&) const override { return false; }
    void load(const std::wstring&, OrvikCore::Document&) override {}
};

class EndingSaver : public OrvikCore::AContentSaver
{
public:
    ~EndingSaver() override { calls().push_back("saver deleted"); }

private:
    bool save(const std::wstring&, OrvikCore::AContent*) override { return false; }
    bool canSave(OrvikCore::AContent*, const std::wstring&) override { return false; }
};

class EndingTreeRendererFactory : public OrvikCore::ATreeRendererFactory
{
public:
    explicit EndingTreeRendererFactory(std::string name = "X") : m_name(std::move(name)) {}
    ~EndingTreeRendererFactory() override { calls().push_back("tree renderer factory deleted"); }
    std::string GetName() const override { return m_name; }
    OrvikCore::ARendererTree* CreateRenderer(OrvikCore::AContent*, OrvikCore::AViewTree*,
                                             TambVizCore::Node*) override
    {
        return nullptr;
    }

private:
    std::string m_name;
};

class EndingContentRendererFactory : public OrvikCore::AContentRendererFactory
{
public:
    explicit EndingContentRendererFactory(std::string name = "X") : m_name(std::move(name)) {}
    ~EndingContentRendererFactory() override
    {
        calls().push_back("content renderer factory deleted");
    }
    std::string GetName() const override { return m_name; }
    OrvikCore::IContentRenderer* CreateRenderer(OrvikCore::AContent*,
                                                TambVizCore::IView3D*) override
    {
        return nullptr;
    }

private:
    std::string m_name;
};

/// A store that remembers its arguments.
class RecordingAutoComplete : public OrvikCore::IAutoComplete
{
public:
    virtual ~RecordingAutoComplete() = default;

    bool AddExtensionInfo(Texts names, Texts descriptions, const std::wstring& group) override
    {
        m_arguments = {names, descriptions, {group}};
        return m_result;
    }
    bool AddExtensionObject(Texts names, const std::wstring& object) override
    {
        m_arguments = {names, {object}};
        return m_result;
    }
    bool FindExtensions(const std::wstring& prefix, Texts& found) override
    {
        found.push_back(prefix + L"-found");
        return m_result;
    }
    bool FindExtensionHelp(const std::wstring& name, std::wstring& help) override
    {
        help = L"help on " + name;
        return m_result;
    }

    std::vector<Texts> m_arguments;
    bool m_result = true;
};

static_assert(!std::has_virtual_destructor_v<OrvikCore::ASessionFactory>);
static_assert(!std::has_virtual_destructor_v<OrvikCore::AContentFactory>);

TEST(SessionMgr, OperationsStandInTheirSlots)
{
    using M = OrvikCore::SessionMgr;
    EXPECT_EQ(VirtualSlot(&M::SetSessionFactory), 0);
    EXPECT_EQ(VirtualSlot(&M::SetApplication), 1);
    EXPECT_EQ(VirtualSlot(&M::GetApplication), 2);
    EXPECT_EQ(VirtualSlot(&M::SetAutoComplete), 3);
    EXPECT_EQ(VirtualSlot(&M::SetShell), 4);
    EXPECT_EQ(VirtualSlot(&M::GetShell), 5);
    EXPECT_EQ(VirtualSlot(&M::CurrentSession), 6);
    EXPECT_EQ(VirtualSlot(&M::SetDefaultInputDirectory), 7);
    EXPECT_EQ(VirtualSlot(&M::GetDefaultOutputDirectory), 8);
    EXPECT_EQ(VirtualSlot(&M::CreateSession), -1);
    EXPECT_TRUE(std::has_virtual_destructor_v<M>);
}

TEST(IApplication, OperationsStandInTheirSlots)
{
    using A = OrvikCore::IApplication;
    EXPECT_TRUE(std::has_virtual_destructor_v<A>);
    // The destructor takes the first two entries of the table, so operation n has the entry n.
    EXPECT_EQ(VirtualSlot(&A::GetName), 2);
    EXPECT_EQ(VirtualSlot(&A::IsBatchMode), 8);
    EXPECT_EQ(VirtualSlot(&A::Pause), 11);
    EXPECT_EQ(VirtualSlot(&A::ReportEngineTerminationFailure), 12);
    EXPECT_EQ(VirtualSlot(&A::Shutdown), 13);
    EXPECT_EQ(VirtualSlot(&A::NewSession), 14);
}

TEST(IAutoComplete, OperationsStandInTheirSlots)
{
    using A = OrvikCore::IAutoComplete;
    EXPECT_EQ(VirtualSlot(&A::AddExtensionInfo), 0);
    EXPECT_EQ(VirtualSlot(&A::AddExtensionObject), 1);
    EXPECT_EQ(VirtualSlot(&A::FindExtensions), 2);
    EXPECT_EQ(VirtualSlot(&A::FindExtensionHelp), 3);
    EXPECT_FALSE(std::has_virtual_destructor_v<A>);
}

TEST(ASessionFactory, MakesSessionsInTheFirstSlot)
{
    EXPECT_EQ(VirtualSlot(&OrvikCore::ASessionFactory::CreateSession), 0);
}

TEST(ASessionFactory, IdentifiersStartAtOneAndNeverComeTwice)
{
    EXPECT_EQ(OrvikCore::ASessionFactory::GetNextId(), 1);
    EXPECT_EQ(OrvikCore::ASessionFactory::GetNextId(), 2);
    EXPECT_EQ(OrvikCore::ASessionFactory::GetNextId(), 3);
}

TEST(ASessionFactory, AsksTheApplicationForSessions)
{
    FakeApplication application(calls());
    auto session = std::make_unique<FakeSession>();
    application.m_newSession = [&session] { return session.get(); };
    manager().SetApplication(&application);

    EXPECT_EQ(OrvikCore::ASessionFactory().CreateSession(), session.get());

    EXPECT_EQ(calls(), (Calls{"NewSession"}));
    manager().SetApplication(nullptr);
}

TEST(ASessionFactory, ThrowsWithoutAnApplication)
{
    try {
        OrvikCore::ASessionFactory().CreateSession();
        FAIL();
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "null IApplication!");
    }
}

TEST(SessionMgr, StartsWithTheFactoryThatAsksTheApplication)
{
    FakeApplication application(calls());
    application.m_newSession = [] { return new FakeSession; };
    manager().SetApplication(&application);

    OrvikCore::ASession& session = manager().CurrentSession();

    EXPECT_EQ(&manager().CurrentSession(), &session);
    EXPECT_EQ(calls(), (Calls{"NewSession"}));
    manager().SetApplication(nullptr);
    manager().Terminate();
}

TEST(SessionMgr, CurrentSessionMakesTheFirstOneOnce)
{
    install(new FakeSessionFactory);

    OrvikCore::ASession& session = manager().CurrentSession();

    EXPECT_EQ(session.Id(), 1);
    EXPECT_EQ(&manager().CurrentSession(), &session);
}

TEST(SessionMgr, LastSessionCreatedIsCurrent)
{
    install(new FakeSessionFactory);
    manager().CreateSession();

    OrvikCore::ASession& second = manager().CreateSession();

    EXPECT_EQ(&manager().CurrentSession(), &second);
    EXPECT_EQ(second.Id(), 2);
}

TEST(SessionMgr, RemoveSessionKeepsTheSession)
{
    install(new FakeSessionFactory);
    OrvikCore::ASession& session = manager().CurrentSession();

    EXPECT_TRUE(manager().RemoveSession(&session));
    EXPECT_TRUE(manager().RemoveSession(nullptr));

    EXPECT_EQ(&manager().CurrentSession(), &session);
}

TEST(SessionMgr, CreatingWithoutAFactoryThrows)
{
    manager().Terminate();

    try {
        manager().CreateSession();
        FAIL();
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "null ASessionFactory!");
    }
}

TEST(SessionMgr, SetSessionFactoryDeletesNothing)
{
    auto first = std::make_unique<FakeSessionFactory>();
    install(first.get());

    manager().SetSessionFactory(new FakeSessionFactory);

    // Deleted here and not by the manager.
    EXPECT_NE(first, nullptr);
    std::unique_ptr<OrvikCore::ASession> session(first->CreateSession());
    EXPECT_NE(session, nullptr);
}

TEST(SessionMgr, SetApplicationLeavesTheOneBeforeAlone)
{
    FakeApplication first(calls());
    FakeApplication second(calls());
    manager().SetApplication(&first);

    manager().SetApplication(&second);

    EXPECT_EQ(manager().GetApplication(), &second);
    EXPECT_TRUE(calls().empty());
    manager().SetApplication(nullptr);
}

TEST(SessionMgr, ExtensionOperationsAreFalseWithoutAStore)
{
    Texts found{L"mine"};
    std::wstring help = L"mine";

    EXPECT_FALSE(manager().AddExtensionInfo({L"a"}, {L"b"}, L"c"));
    EXPECT_FALSE(manager().AddExtensionObject({L"a"}, L"b"));
    EXPECT_FALSE(manager().FindExtensions(L"a", found));
    EXPECT_FALSE(manager().FindExtensionHelp(L"a", help));

    EXPECT_EQ(found, (Texts{L"mine"}));
    EXPECT_EQ(help, L"mine");
}

TEST(SessionMgr, ExtensionOperationsForwardArgumentsAndResults)
{
    RecordingAutoComplete store;
    manager().SetAutoComplete(&store);
    Texts found;
    std::wstring help;

    EXPECT_TRUE(manager().AddExtensionInfo({L"a", L"b"}, {L"x", L"y"}, L"group"));
    EXPECT_EQ(store.m_arguments, (std::vector<Texts>{{L"a", L"b"}, {L"x", L"y"}, {L"group"}}));
    EXPECT_TRUE(manager().AddExtensionObject({L"a"}, L"object"));
    EXPECT_EQ(store.m_arguments, (std::vector<Texts>{{L"a"}, {L"object"}}));
    EXPECT_TRUE(manager().FindExtensions(L"pre", found));
    EXPECT_EQ(found, (Texts{L"pre-found"}));
    EXPECT_TRUE(manager().FindExtensionHelp(L"name", help));
    EXPECT_EQ(help, L"help on name");
    store.m_result = false;
    EXPECT_FALSE(manager().FindExtensions(L"pre", found));
    manager().SetAutoComplete(nullptr);
}

TEST(SessionMgr, DirectoriesStartAtTheWorkingFolder)
{
    EXPECT_EQ(manager().GetDefaultInputDirectory(), L".");
    EXPECT_EQ(manager().GetDefaultOutputDirectory(), L".");
}

TEST(SessionMgr, DirectoriesAreKeptApart)
{
    manager().SetDefaultInputDirectory(L"/in");
    manager().SetDefaultOutputDirectory(L"/out");

    EXPECT_EQ(manager().GetDefaultInputDirectory(), L"/in");
    EXPECT_EQ(manager().GetDefaultOutputDirectory(), L"/out");
}

TEST(SessionMgr, ListsKeepNullAndTheOrder)
{
    auto* const factory = new PlainContentFactory;
    auto* const loader = new EndingLoader;
    auto* const saver = new EndingSaver;
    manager().AddContentFactory(nullptr);
    manager().AddContentFactory(factory);
    manager().RegisterContentLoader(loader);
    manager().RegisterContentLoader(nullptr);
    manager().RegisterContentSaver(nullptr);
    manager().RegisterContentSaver(saver);

    EXPECT_EQ(manager().GetContentFactoryList(),
              (std::vector<OrvikCore::AContentFactory*>{nullptr, factory}));
    EXPECT_EQ(manager().GetContentLoaderList(),
              (std::vector<OrvikCore::AContentLoader*>{loader, nullptr}));
    EXPECT_EQ(manager().GetContentSaverList(),
              (std::vector<OrvikCore::AContentSaver*>{nullptr, saver}));
}

TEST(SessionMgr, DefaultContentFactoryIsTheFirstThatIsThere)
{
    EXPECT_EQ(manager().GetDefaultContentFactory(), nullptr);
    auto* const factory = new PlainContentFactory;
    manager().AddContentFactory(nullptr);
    manager().AddContentFactory(factory);
    manager().AddContentFactory(new PlainContentFactory);

    EXPECT_EQ(manager().GetDefaultContentFactory(), factory);
}

TEST(SessionMgr, RendererFactoriesAreFoundByTheirExactNames)
{
    auto* const lower = new EndingTreeRendererFactory("x");
    auto* const content = new EndingContentRendererFactory("Mesh");
    manager().RegisterTreeRendererFactory(lower);
    manager().RegisterContentRendererFactory(content);

    EXPECT_EQ(manager().GetTreeRendererFactory("X"), nullptr);
    EXPECT_EQ(manager().GetTreeRendererFactory("x"), lower);
    EXPECT_EQ(manager().GetContentRendererFactory("Mesh"), content);
    EXPECT_EQ(manager().GetContentRendererFactory("mesh"), nullptr);
}

TEST(SessionMgr, FirstRendererFactoryOfANameWins)
{
    auto* const first = new EndingTreeRendererFactory("x");
    manager().RegisterTreeRendererFactory(first);
    manager().RegisterTreeRendererFactory(new EndingTreeRendererFactory("x"));

    EXPECT_EQ(manager().GetTreeRendererFactory("x"), first);
}

TEST(SessionMgr, NullRendererFactoriesAreNotKept)
{
    manager().RegisterTreeRendererFactory(nullptr);
    manager().RegisterContentRendererFactory(nullptr);

    EXPECT_EQ(manager().GetTreeRendererFactory(""), nullptr);
    EXPECT_EQ(manager().GetContentRendererFactory(""), nullptr);
}

TEST(SessionMgr, ActivateAddsTheTwoItemsForBodies)
{
    OrvikCore::AMenuTemplate menu;
    manager().SetMenuTemplate(&menu);

    manager().Activate();

    using Styles = OrvikCore::TreeBuilder::TreeItemStyles;
    ASSERT_EQ(menu.MenuItemsCount(), 2);
    const OrvikCore::MenuItem& hide = **menu.MenuItemsBegin();
    const OrvikCore::MenuItem& unhide = **(menu.MenuItemsBegin() + 1);
    EXPECT_EQ(hide.Text(), L"&Hide node");
    EXPECT_EQ(unhide.Text(), L"&Unhide node");
    for (const OrvikCore::MenuItem* item : {&hide, &unhide}) {
        EXPECT_NE(dynamic_cast<OrvikCore::VisibilityMenuAction*>(item->Action()), nullptr);
        EXPECT_TRUE(item->IsApplicableTo(static_cast<Styles>(4)));
        EXPECT_FALSE(item->IsApplicableTo(static_cast<Styles>(2)));
    }
    manager().SetMenuTemplate(nullptr);
}

TEST(SessionMgr, ActivateWithoutATemplateDoesNothing)
{
    manager().Activate();

    EXPECT_EQ(manager().MenuTemplate(), nullptr);
}

TEST(SessionMgr, TerminateReleasesEverythingInItsOrder)
{
    alignas(FakeApplication) static std::byte storage[sizeof(FakeApplication)];
    auto* const application = new (storage) FakeApplication(calls());
    application->m_exitCode = 7;
    install(new EndingSessionFactory);
    manager().SetApplication(application);
    manager().CreateSession();
    manager().CreateSession();
    manager().RegisterContentRendererFactory(new EndingContentRendererFactory);
    manager().RegisterTreeRendererFactory(new EndingTreeRendererFactory);
    manager().AddContentFactory(new PlainContentFactory);
    manager().RegisterContentSaver(new EndingSaver);
    manager().RegisterContentLoader(new EndingLoader);
    calls().clear();

    EXPECT_EQ(manager().Terminate(), 7);

    EXPECT_EQ(calls(), (Calls{"session 1 observer null", "session 1 tree null", "session 1 deleted",
                              "session 2 observer null", "session 2 tree null", "session 2 deleted",
                              "loader deleted", "saver deleted", "tree renderer factory deleted",
                              "content renderer factory deleted", "Shutdown", "~IApplication"}));
    EXPECT_EQ(manager().GetApplication(), nullptr);
    EXPECT_TRUE(manager().GetContentLoaderList().empty());
    EXPECT_TRUE(manager().GetContentSaverList().empty());
    EXPECT_TRUE(manager().GetContentFactoryList().empty());
}

TEST(SessionMgr, TerminateWithoutAnApplicationIsZero)
{
    EXPECT_EQ(manager().Terminate(), 0);
}

TEST(SessionMgr, SecondTerminateFindsNothing)
{
    FakeApplication* const application = new FakeApplication(calls());
    manager().SetApplication(application);
    manager().Terminate();
    calls().clear();

    EXPECT_EQ(manager().Terminate(), 0);

    EXPECT_TRUE(calls().empty());
    operator delete(application);
}

TEST(SessionMgr, SessionAfterTerminateIsRefused)
{
    install(new FakeSessionFactory);
    manager().CreateSession();
    manager().Terminate();

    EXPECT_THROW(manager().CurrentSession(), std::runtime_error);
}

TEST(SessionMgr, IndexThatStaysAfterTerminateIsNotUsedUntilItIsReached)
{
    install(new FakeSessionFactory);
    manager().CreateSession();
    manager().CreateSession();
    manager().Terminate();
    install(new FakeSessionFactory);

    OrvikCore::ASession& session = manager().CurrentSession();

    EXPECT_EQ(session.Id(), 3);
    EXPECT_EQ(&manager().CurrentSession(), &session);
}

} // namespace
