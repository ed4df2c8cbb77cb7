#ifndef APPSCOMMON_MANIPULATORS_H
#define APPSCOMMON_MANIPULATORS_H

#include <OrvikCore/ABufferManipulator.h>
#include <OrvikCore/AViewManipulator.h>
#include <OrvikCore/IIdPictureSaver.h>

namespace Pellux {

class RunHistory;

/// Switches the kinds of drawing of the current session's view, then repaints. Main thread.
class ViewManipulator : public OrvikCore::AViewManipulator
{
public:
    void DisplayFaces(bool show) override;
    void DisplayEdges(bool show) override;
    void DisplayVertices(bool show) override;
    void DisplayTessellation(bool show) override;
    void DisplayClouds(bool show) override;
    void DisplayPMI(bool show) override;
};

/// Measures and saves the picture of the current session's view. Main thread.
class BufferManipulator : public OrvikCore::ABufferManipulator, public OrvikCore::IIdPictureSaver
{
public:
    /// @param history  Tells the command that repeats a picture; not owned, outlives this.
    explicit BufferManipulator(const RunHistory& history) : m_history(history) {}

    bool GetSize(int& width, int& height) const override;
    bool SaveImage(const std::wstring& fileName, int width, int height,
                   std::wstring* errorText) override;
    bool SaveIdPicture(const std::wstring& fileName, int width, int height,
                       std::vector<TambVizCore::EntityId>& entities,
                       std::wstring* errorText) override;

private:
    const RunHistory& m_history;
};

} // namespace Pellux

#endif
