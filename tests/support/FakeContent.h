#ifndef TESTS_FAKECONTENT_H
#define TESTS_FAKECONTENT_H

#include "OrvikCore/AContent.h"
#include "OrvikCore/IKindPicker.h"

#include <TambVizCore/EntityId.h>
#include <TambVizCore/Ray.h>
#include <TambVizCore/VizBox.h>

#include <string>
#include <utility>
#include <vector>

/// The calls that fakes of one test receive, in order.
using CallLog = std::vector<std::string>;

/// A content that writes its calls to a log, with answers that a test sets.
class FakeContent : public OrvikCore::AContent
{
public:
    /// @param log   receives "<name>.<operation>"; not owned.
    FakeContent(OrvikCore::Document& owner, std::string name, CallLog& log)
        : AContent(owner), m_name(std::move(name)), m_log(&log)
    {
    }
    ~FakeContent() override { note("deleted"); }

    std::wstring GetShortId() override { return m_shortId; }
    std::wstring GetLongId() override { return m_longId; }
    void NoteState() override { note("NoteState"); }
    void Undo() override { note("Undo"); }
    void Redo() override { note("Redo"); }
    std::string GetTypeName() const override { return "Fake"; }
    bool GetBoundingBox(TambVizCore::VizBox& box) const override
    {
        if (m_box.IsEmpty()) {
            return false;
        }
        box = m_box;
        return true;
    }
    void ClearSelection() override { note("ClearSelection"); }
    bool RayPick(const TambVizCore::Ray&, TambVizCore::EntityId& hit) override
    {
        note("RayPick");
        if (m_hit.IsEmpty()) {
            return false;
        }
        hit = m_hit;
        return true;
    }

    std::wstring m_shortId;
    std::wstring m_longId;
    TambVizCore::VizBox m_box;   ///< No box while empty.
    TambVizCore::EntityId m_hit; ///< No hit while empty.

protected:
    void note(const char* operation) { m_log->push_back(m_name + "." + operation); }

private:
    std::string m_name;
    CallLog* m_log; ///< Not owned.
};

/// The same with picks by kind.
class FakeKindContent : public FakeContent, public OrvikCore::IKindPicker
{
public:
    using FakeContent::FakeContent;

    bool RayPickKind(const TambVizCore::Ray&, TambVizCore::PartKind kind,
                     TambVizCore::EntityId& hit) override
    {
        note("RayPickKind");
        if (kind != m_kind) {
            return false;
        }
        hit = m_hit;
        return true;
    }

    TambVizCore::PartKind m_kind = TambVizCore::PartKind::None; ///< The only kind that is hit.
};

#endif
