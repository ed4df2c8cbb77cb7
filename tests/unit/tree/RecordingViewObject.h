#ifndef TESTS_RECORDINGVIEWOBJECT_H
#define TESTS_RECORDINGVIEWOBJECT_H

#include "OrvikCore/AMarkupViewObject.h"
#include "OrvikCore/AViewObject.h"

#include <string>
#include <utility>
#include <vector>

/// The calls that the objects of one test receive, in order.
using CallLog = std::vector<std::string>;

/// A view object that writes its steps to a log.
class RecordingViewObject : public OrvikCore::AViewObject
{
public:
    /// @param log  receives "<label>.<step>"; not owned.
    RecordingViewObject(std::string label, CallLog& log) : m_label(std::move(label)), m_log(&log)
    {
        name = m_label;
    }
    ~RecordingViewObject() override { note("deleted"); }

    using AViewObject::id;
    using AViewObject::name;
    using AViewObject::rendered;
    using AViewObject::visible;

    bool IsRendered() const { return rendered; }

    bool m_renders = true; ///< Whether doRender() has something to build.
    TambVizCore::RenderingOptions const* m_options = nullptr; ///< Not owned; received last.

protected:
    void doRender() override
    {
        note("render");
        rendered = m_renders;
    }
    void doClear() override { note("clear"); }
    void doDisplay() override { note("display"); }
    void doUpdateRenderOptions(TambVizCore::RenderingOptions const& options) override
    {
        m_options = &options;
    }

private:
    void note(const char* step) { m_log->push_back(m_label + "." + step); }

    std::string m_label;
    CallLog* m_log; ///< Not owned.
};

/// Markup that draws nothing.
class FakeMarkup : public OrvikCore::AMarkupViewObject
{
public:
    using AMarkupViewObject::AMarkupViewObject;

    void AddPolyline(std::vector<double> const&) override { ++m_count; }
    void RemovePolylines() override { m_count = 0; }
    int CountPolylines() const override { return m_count; }

protected:
    void doRender() override { rendered = true; }
    void doClear() override {}
    void doDisplay() override {}

private:
    int m_count = 0;
};

#endif
