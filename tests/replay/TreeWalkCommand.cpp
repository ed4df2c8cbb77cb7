#include "TreeWalkCommand.h"

#include "../../apps/common/HostTree.h"

#include <OrvikCore/AContent.h>
#include <OrvikCore/ARendererTree.h>
#include <OrvikCore/ASession.h>
#include <OrvikCore/Document.h>
#include <OrvikCore/IContentRenderer.h>
#include <OrvikCore/SessionMgr.h>
#include <TambCommandsInfra/CallGate.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambVizCore/EntityId.h>
#include <TambVizCore/RenderId.h>

#include <set>
#include <string>
#include <vector>

namespace {

using OrvikCore::AContent;
using OrvikCore::ASession;
using OrvikCore::IContentRenderer;
using Pellux::HostTree;
using Pellux::HostTreeRow;
using TambCommandsInfra::Command;
using TambCommandsInfra::Value;
using TambVizCore::EntityId;
using TambVizCore::RenderId;

/// Gives a session a tree for as long as it lives.
class SessionWithTree
{
public:
    explicit SessionWithTree(ASession& session) : m_session(session)
    {
        m_session.SetViewTree(&m_tree);
        m_session.RefreshTree();
        m_tree.FillAll();
    }
    ~SessionWithTree()
    {
        m_session.EnableTreeRenderer(false);
        m_session.SetViewTree(nullptr);
    }
    SessionWithTree(const SessionWithTree&) = delete;
    SessionWithTree& operator=(const SessionWithTree&) = delete;

    const HostTree& Tree() const { return m_tree; }

private:
    ASession& m_session;
    HostTree m_tree{
        [this](const RenderId& path) { return m_session.GetTreeRenderer()->ExpandNode(path); }};
};

class Walk
{
public:
    explicit Walk(ASession& session) : m_session(session) {}

    void Below(const HostTreeRow& parent)
    {
        for (std::size_t i = 0; i < parent.ChildCount(); ++i) {
            check(parent.ChildAt(i));
            Below(parent.ChildAt(i));
        }
    }

    Value Result() const
    {
        Value::List plain;
        for (const std::string& kind : m_plainKinds)
            plain.push_back(Value::FromUtf8(kind));
        return Value(
            Value::List{Value(m_rows), Value(m_drawn), Value(std::move(plain)), Value(m_failures)});
    }

private:
    void fail(const HostTreeRow& row, const std::string& what)
    {
        m_failures.push_back(Value::FromUtf8(row.KindWord() + std::string(" ") +
                                             row.Path().ToString() + " " + what));
    }

    /// @return the id that draws an entity in the 3D view, with the renderer that converted it.
    IContentRenderer* findInView(const EntityId& entity, RenderId& id) const
    {
        for (AContent* const content : m_session.Document().GetContentList()) {
            IContentRenderer* const renderer = m_session.Get3DRenderer(content);
            if (renderer != nullptr && renderer->ConvertToRenderId(entity, id))
                return renderer;
        }
        return nullptr;
    }

    void check(const HostTreeRow& row)
    {
        ++m_rows;
        OrvikCore::ARendererTree& tree = *m_session.GetTreeRenderer();
        OrvikCore::TreeBuilder::TreeItemStyles style;
        EntityId entity;
        if (!tree.GetNodeStyle(row.Path(), style))
            return fail(row, "has no style");
        if (!tree.ConvertToEntityId(row.Path(), entity))
            return fail(row, "shows no entity");
        RenderId inView;
        if (IContentRenderer* const renderer = findInView(entity, inView)) {
            ++m_drawn;
            EntityId back;
            if (!renderer->ConvertToEntityId(inView, back) || back != entity)
                return fail(row, "is another entity in the view: " + entity.ToString() + ", " +
                                     back.ToString());
            entity = back;
        } else {
            m_plainKinds.insert(row.KindWord());
        }
        RenderId path;
        if (!tree.ConvertToRenderId(entity, path) || path != row.Path())
            fail(row, "comes back as " + path.ToString());
    }

    ASession& m_session;
    std::int64_t m_rows = 0;
    std::int64_t m_drawn = 0;
    std::set<std::string> m_plainKinds;
    Value::List m_failures;
};

Value walkTree()
{
    return TambCommandsInfra::CallGate::Call([] {
        ASession& session = OrvikCore::SessionMgr::Instance().CurrentSession();
        const SessionWithTree withTree(session);
        Walk walk(session);
        walk.Below(withTree.Tree().Root());
        return walk.Result();
    });
}

} // namespace

void RegisterTreeWalkCommand(TambCommandsInfra::CommandTable& table)
{
    Command command;
    command.name = "test:walk-tree";
    command.result = TambCommandsInfra::ValueType::List;
    command.resultHelp = "rows, rows with something in the view, kinds of the others, failures";
    command.summary = "Converts every row of the model tree there and back.";
    command.example = "(test:walk-tree)";
    command.handler = [](const TambCommandsInfra::Arguments&) { return walkTree(); };
    table.Register(command);
}
