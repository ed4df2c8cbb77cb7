#ifndef TAMBCOMMANDSINFRA_TESTS_RECORDINGSERVICES_H
#define TAMBCOMMANDSINFRA_TESTS_RECORDINGSERVICES_H

#include <TambCommandsInfra/ITambApplicationCoreServices.h>
#include <TambCommandsInfra/ITambDocumentServices.h>
#include <TambCommandsInfra/ITambViewServices.h>
#include <TambCommandsInfra/TambServiceSetCollectionBase.h>

#include <sstream>
#include <string>
#include <thread>
#include <vector>

/// What the recording services have been asked for, as one line each, and on which thread.
struct ServiceRecord
{
    std::vector<std::string> lines;
    std::vector<std::thread::id> threads;

    void Note(const std::string& line)
    {
        lines.push_back(line);
        threads.push_back(std::this_thread::get_id());
    }
};

inline std::string TextOf(const std::wstring& text)
{
    return std::string(text.begin(), text.end());
}
inline std::string TextOf(bool value)
{
    return value ? "true" : "false";
}
inline std::string TextOf(int value)
{
    return std::to_string(value);
}
inline std::string TextOf(double value)
{
    std::ostringstream text;
    text << value;
    return text.str();
}
inline std::string TextOf(const TambCommandsInfra::Color24& color)
{
    return std::to_string(color.red) + "/" + std::to_string(color.green) + "/" +
           std::to_string(color.blue);
}
inline std::string TextOf(const TambCommandsInfra::Int8& value)
{
    return std::to_string(value.Value());
}
template <typename T> std::string TextOf(const TambCommandsInfra::Nullable<T>& value)
{
    return value.HasValue() ? TextOf(value.Value()) : "none";
}
template <typename T> std::string TextOf(const std::vector<T>& values)
{
    std::string text = "[";
    for (const T& value : values) {
        text += (text.size() > 1 ? "," : "") + TextOf(value);
    }
    return text + "]";
}

/// "Name(first,second)"
template <typename... Arguments>
std::string CallText(const char* name, const Arguments&... arguments)
{
    std::string text;
    ((text += (text.empty() ? "" : ",") + TextOf(arguments)), ...);
    return std::string(name) + "(" + text + ")";
}

/// Writes down each call; getters give fixed values.
class RecordingCoreServices final : public ITambApplicationCoreServices
{
public:
    explicit RecordingCoreServices(ServiceRecord& record) : m_record(record) {}

    void PrintMessageImpl(const std::wstring& text) override
    {
        m_record.Note(CallText("PrintMessage", text));
    }
    void PrintWarningMessageImpl(const std::wstring& text) override
    {
        m_record.Note(CallText("PrintWarningMessage", text));
    }
    void PrintErrorMessageImpl(const std::wstring& text) override
    {
        m_record.Note(CallText("PrintErrorMessage", text));
    }
    void SetTooltipImpl(const std::wstring& text) override
    {
        m_record.Note(CallText("SetTooltip", text));
    }
    void AddExtensionInfoImpl(const std::vector<std::wstring>& names,
                              const std::vector<std::wstring>& arguments,
                              const std::wstring& help) override
    {
        m_record.Note(CallText("AddExtensionInfo", names, arguments, help));
    }
    void AddObjectInfoImpl(const std::vector<std::wstring>& names,
                           const std::wstring& help) override
    {
        m_record.Note(CallText("AddObjectInfo", names, help));
    }
    void PauseImpl(bool pause) override { m_record.Note(CallText("Pause", pause)); }
    Nullable<Color24> GetDefaultFaceColorImpl() override
    {
        m_record.Note(CallText("GetDefaultFaceColor"));
        return Color24{1, 2, 3};
    }
    Nullable<Color24> GetDefaultEdgeColorImpl() override
    {
        m_record.Note(CallText("GetDefaultEdgeColor"));
        return Color24{1, 2, 3};
    }
    Nullable<Color24> GetDefaultVertexColorImpl() override
    {
        m_record.Note(CallText("GetDefaultVertexColor"));
        return Color24{1, 2, 3};
    }
    Nullable<Color24> GetDefaultTessEdgeColorImpl() override
    {
        m_record.Note(CallText("GetDefaultTessEdgeColor"));
        return Color24{1, 2, 3};
    }
    void SetDefaultFaceColorImpl(const Nullable<Color24>& color) override
    {
        m_record.Note(CallText("SetDefaultFaceColor", color));
    }
    void SetDefaultEdgeColorImpl(const Nullable<Color24>& color) override
    {
        m_record.Note(CallText("SetDefaultEdgeColor", color));
    }
    void SetDefaultVertexColorImpl(const Nullable<Color24>& color) override
    {
        m_record.Note(CallText("SetDefaultVertexColor", color));
    }
    void SetDefaultTessEdgeColorImpl(const Nullable<Color24>& color) override
    {
        m_record.Note(CallText("SetDefaultTessEdgeColor", color));
    }
    Nullable<Int8> GetDefaultFaceAlphaImpl() override
    {
        m_record.Note(CallText("GetDefaultFaceAlpha"));
        return Int8(9);
    }
    Nullable<Int8> GetDefaultEdgeAlphaImpl() override
    {
        m_record.Note(CallText("GetDefaultEdgeAlpha"));
        return Int8(9);
    }
    Nullable<Int8> GetDefaultVertexAlphaImpl() override
    {
        m_record.Note(CallText("GetDefaultVertexAlpha"));
        return Int8(9);
    }
    void SetDefaultFaceAlphaImpl(const Nullable<Int8>& alpha) override
    {
        m_record.Note(CallText("SetDefaultFaceAlpha", alpha));
    }
    void SetDefaultEdgeAlphaImpl(const Nullable<Int8>& alpha) override
    {
        m_record.Note(CallText("SetDefaultEdgeAlpha", alpha));
    }
    void SetDefaultVertexAlphaImpl(const Nullable<Int8>& alpha) override
    {
        m_record.Note(CallText("SetDefaultVertexAlpha", alpha));
    }
    Nullable<Color24> GetBackgroundColorImpl(int number) override
    {
        m_record.Note(CallText("GetBackgroundColor", number));
        return Color24{1, 2, 3};
    }
    void SetBackgroundColorImpl(const Nullable<Color24>& color, int number) override
    {
        m_record.Note(CallText("SetBackgroundColor", color, number));
    }
    Nullable<std::wstring> GetDefaultInputDirectoryImpl() override
    {
        m_record.Note(CallText("GetDefaultInputDirectory"));
        return std::wstring(L"folder");
    }
    Nullable<std::wstring> GetDefaultOutputDirectoryImpl() override
    {
        m_record.Note(CallText("GetDefaultOutputDirectory"));
        return std::wstring(L"folder");
    }
    void SetDefaultInputDirectoryImpl(const Nullable<std::wstring>& directory) override
    {
        m_record.Note(CallText("SetDefaultInputDirectory", directory));
    }
    void SetDefaultOutputDirectoryImpl(const Nullable<std::wstring>& directory) override
    {
        m_record.Note(CallText("SetDefaultOutputDirectory", directory));
    }

private:
    ServiceRecord& m_record; ///< Not owned.
};

/// Writes down each call; getters give fixed values.
class RecordingDocumentServices final : public ITambDocumentServices
{
public:
    explicit RecordingDocumentServices(ServiceRecord& record) : m_record(record) {}

    bool GetBoundingBoxImpl(double& xMin, double& yMin, double& zMin, double& xMax, double& yMax,
                            double& zMax) override
    {
        m_record.Note(CallText("GetBoundingBox"));
        xMin = 1;
        yMin = 2;
        zMin = 3;
        xMax = 4;
        yMax = 5;
        zMax = 6;
        return true;
    }

private:
    ServiceRecord& m_record; ///< Not owned.
};

/// Writes down each call; getters give fixed values.
class RecordingViewServices final : public ITambViewServices
{
public:
    explicit RecordingViewServices(ServiceRecord& record) : m_record(record) {}

    void ZoomToBoxImpl(double xMin, double yMin, double zMin, double xMax, double yMax,
                       double zMax) override
    {
        m_record.Note(CallText("ZoomToBox", xMin, yMin, zMin, xMax, yMax, zMax));
    }
    void UpdateDisplayImpl() override { m_record.Note(CallText("UpdateDisplay")); }
    void RerenderImpl() override { m_record.Note(CallText("Rerender")); }
    void IsoImpl() override { m_record.Note(CallText("Iso")); }
    void FrontImpl() override { m_record.Note(CallText("Front")); }
    void BackImpl() override { m_record.Note(CallText("Back")); }
    void TopImpl() override { m_record.Note(CallText("Top")); }
    void BottomImpl() override { m_record.Note(CallText("Bottom")); }
    void RightImpl() override { m_record.Note(CallText("Right")); }
    void LeftImpl() override { m_record.Note(CallText("Left")); }
    void DisplayFacesImpl(bool show) override { m_record.Note(CallText("DisplayFaces", show)); }
    void DisplayEdgesImpl(bool show) override { m_record.Note(CallText("DisplayEdges", show)); }
    void DisplayVerticesImpl(bool show) override
    {
        m_record.Note(CallText("DisplayVertices", show));
    }
    void DisplayTessellationImpl(bool show) override
    {
        m_record.Note(CallText("DisplayTessellation", show));
    }
    void DisplayCloudsImpl(bool show) override { m_record.Note(CallText("DisplayClouds", show)); }
    void DisplayPMIImpl(bool show) override { m_record.Note(CallText("DisplayPMI", show)); }
    void DisplayAxesImpl(bool show) override { m_record.Note(CallText("DisplayAxes", show)); }
    void GetCameraImpl(double& eyeX, double& eyeY, double& eyeZ, double& targetX, double& targetY,
                       double& targetZ, double& upX, double& upY, double& upZ) override
    {
        m_record.Note(CallText("GetCamera"));
        eyeX = 1;
        eyeY = 2;
        eyeZ = 3;
        targetX = 4;
        targetY = 5;
        targetZ = 6;
        upX = 7;
        upY = 8;
        upZ = 9;
    }
    void SetCameraImpl(double eyeX, double eyeY, double eyeZ, double targetX, double targetY,
                       double targetZ, double upX, double upY, double upZ) override
    {
        m_record.Note(
            CallText("SetCamera", eyeX, eyeY, eyeZ, targetX, targetY, targetZ, upX, upY, upZ));
    }
    bool SetTessellationParametersImpl(double sag, double step, double maxAngle) override
    {
        m_record.Note(CallText("SetTessellationParameters", sag, step, maxAngle));
        return true;
    }
    bool GetTessellationParametersImpl(double& sag, double& step, double& maxAngle) override
    {
        m_record.Note(CallText("GetTessellationParameters"));
        sag = 1;
        step = 2;
        maxAngle = 3;
        return true;
    }
    void SetUseIncrementalRenderingImpl(bool use) override
    {
        m_record.Note(CallText("SetUseIncrementalRendering", use));
    }
    bool GetUseIncrementalRenderingImpl() override
    {
        m_record.Note(CallText("GetUseIncrementalRendering"));
        return true;
    }
    void DrawArrowImpl(double fromX, double fromY, double fromZ, double toX, double toY,
                       double toZ) override
    {
        m_record.Note(CallText("DrawArrow", fromX, fromY, fromZ, toX, toY, toZ));
    }
    void DrawTessellationDataImpl(std::vector<float>& vertices, std::vector<float>& normals,
                                  std::vector<float>& colors, std::vector<int>& indices) override
    {
        m_record.Note(CallText("DrawTessellationData", vertices, normals, colors, indices));
    }
    void ClearDrawingObjectsImpl() override { m_record.Note(CallText("ClearDrawingObjects")); }

private:
    ServiceRecord& m_record; ///< Not owned.
};

/// A collection that registers what it is given, in that order.
class FakeServiceSetCollection final : public TambServiceSetCollectionBase
{
public:
    explicit FakeServiceSetCollection(const std::vector<ITambServiceSet*>& services)
    {
        for (ITambServiceSet* service : services) {
            RegisterService(service);
        }
    }
};

#endif
