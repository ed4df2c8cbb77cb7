// How long frames, hovers and changes of a face take. Milliseconds of wall time; "worst" is the
// longest of all calls that the host makes, which its user waits for; "first" the same while
// geometry is uploaded and coarser versions are built, "first_processor" in processor time of all
// threads, which says more where other programs run.
#include "ViewBenchScene.h"

#include <OrvikCore/IFrameWindow.h>
#include <OrvikOs/Clock.h>
#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Image.h>
#include <TambVizCore/RenderId.h>
#include <TambVizCore/RenderingOptions.h>
#include <TambVizCore/SelectionHolder.h>

#include <OrvikRay/RayIndex.h>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <ctime>
#include <vector>

namespace ViewBench {
namespace {

using ViewOpenGl::View3dOpenGlSG;

constexpr Spheres kEmpty{.count = 1, .rings = 4};
constexpr Spheres kOne{.count = 1, .rings = 707};
constexpr Spheres kOneCut{.count = 1, .rings = 707, .isCut = true};
constexpr Spheres kOneLarge{.count = 1, .rings = 2236};
constexpr Spheres k200{.count = 200, .rings = 50};
constexpr Spheres k200InOne{.count = 200, .rings = 50, .inOneBody = true};
constexpr Spheres k5000{.count = 5000, .rings = 10};
constexpr Spheres k5000InOne{.count = 5000, .rings = 10, .inOneBody = true};

double nowMs()
{
    return static_cast<double>(OrvikOs::Clock::NowUs()) / 1000.0;
}

/// A host that paints into memory, as the window does where it lends no context.
class Host : public OrvikCore::IFrameWindow
{
public:
    explicit Host(View3dOpenGlSG& view) : m_view(view), m_pixels(4u * kWidth * kHeight)
    {
        m_view.SetFrameWindow(this);
    }

    ~Host() override { m_view.SetFrameWindow(nullptr); }

    void PaintNow() override
    {
        m_view.DrawFrame();
        m_view.ReadFrame(
            {m_pixels.data(), 4 * kWidth, kWidth, kHeight, OrvikCore::PixelOrder::Bgra});
    }

    void WorkWaits() override {}

    /// The longest slice, milliseconds.
    struct Longest
    {
        double wall = 0.0;
        double processor = 0.0; ///< Of all threads.
    };

    Longest Settle()
    {
        Longest longest;
        for (bool more = true; more;) {
            const double began = nowMs();
            const std::clock_t beganWork = std::clock();
            more = m_view.Refine(20);
            longest.wall = std::max(longest.wall, nowMs() - began);
            longest.processor =
                std::max(longest.processor,
                         1e3 * static_cast<double>(std::clock() - beganWork) / CLOCKS_PER_SEC);
        }
        return longest;
    }

private:
    View3dOpenGlSG& m_view;
    std::vector<unsigned char> m_pixels;
};

/// A picture as scripts ask for it.
void picture(benchmark::State& state, const Spheres& spheres)
{
    View3dOpenGlSG view;
    Fill(view, spheres);
    TambVizCore::Image image;
    double angle = 0.0;
    for (auto step : state) {
        LookFrom(view, angle += 0.02);
        if (!view.ReadImage(kWidth, kHeight, image))
            state.SkipWithError("no OpenGL");
    }
}

/// A frame of a camera that moves, down to the pixels in the host's memory.
void moving(benchmark::State& state, const Spheres& spheres)
{
    View3dOpenGlSG view;
    Fill(view, spheres);
    Host host(view);
    double angle = 0.0;
    // The first rests build the coarser versions; the movement that follows is known then.
    for (int i = 0; i < 10; ++i) {
        LookFrom(view, angle += 0.02);
        view.UpdateDisplay();
        if (i < 2)
            host.Settle();
    }
    double worst = 0.0;
    for (auto step : state) {
        const double began = nowMs();
        LookFrom(view, angle += 0.02);
        view.UpdateDisplay();
        worst = std::max(worst, nowMs() - began);
    }
    state.counters["worst"] = worst;
}

/// From the end of a movement to the frame in full; its slices are asked to take 20 ms.
void resting(benchmark::State& state, const Spheres& spheres)
{
    View3dOpenGlSG view;
    Fill(view, spheres);
    Host host(view);
    double angle = 0.0;
    const auto move = [&] {
        LookFrom(view, angle += 0.02);
        view.UpdateDisplay();
    };
    // The first ones upload the geometry and build the coarser versions.
    Host::Longest first;
    for (int i = 0; i < 5; ++i) {
        move();
        const Host::Longest longest = host.Settle();
        first.wall = std::max(first.wall, longest.wall);
        first.processor = std::max(first.processor, longest.processor);
    }
    double worst = 0.0;
    for (auto step : state) {
        state.PauseTiming();
        move();
        state.ResumeTiming();
        worst = std::max(worst, host.Settle().wall);
    }
    state.counters["first"] = first.wall;
    state.counters["first_processor"] = first.processor;
    state.counters["worst"] = worst;
}

/// From the place of the pointer to what lies under it.
void hover(benchmark::State& state, const Spheres& spheres)
{
    View3dOpenGlSG view;
    Fill(view, spheres);
    LookFrom(view, 0.3);
    for (std::size_t i = 0; i < view.GetSceneRoot().ChildCount(); ++i) {
        const auto& geometry = view.GetSceneRoot().ChildAt(i)->AsGeoNode()->GetGeometry();
        geometry->PublishIndex(OrvikRay::BuildRayIndex(*geometry));
    }
    TambVizCore::RenderId id;
    int x = 0;
    for (auto step : state) {
        x = (x + 37) % kWidth;
        if (view.GetRenderIdAtPixel(x, kHeight / 2, id))
            view.GetSelectionHolder()->Highlight(id);
        else
            view.GetSelectionHolder()->ClearHighlight();
    }
}

/// One of 100,000 faces in a body of 1 M triangles: the new state, and its bytes in graphics
/// memory.
void changeFace(benchmark::State& state, bool hides)
{
    View3dOpenGlSG view;
    Fill(view, {.count = 1, .rings = 707, .withFaces = true});
    LookFrom(view, 0.3);
    auto& node = *view.GetSceneRoot().ChildAt(0)->AsGeoNode();
    std::string reason;
    const auto context = ViewOpenGl::GlContext::Create(reason);
    if (context == nullptr) {
        state.SkipWithError("no OpenGL");
        return;
    }
    const ViewOpenGl::GlContext::Current current(*context);
    ViewOpenGl::GpuScene gpu;
    node.SetPartHighlighted(0, true);
    gpu.BeginFrame();
    gpu.Node(node);
    const auto faces = static_cast<std::uint32_t>(node.PartStates().size());
    std::uint32_t face = 0;
    for (auto step : state) {
        face = (face + 7919) % faces;
        if (hides)
            node.SetPartShown(face, !node.PartStates()[face].Has(TambVizCore::PartState::kShown));
        else
            node.SetPartHighlighted(
                face, !node.PartStates()[face].Has(TambVizCore::PartState::kHighlighted));
        gpu.Node(node);
    }
    gpu.Clear();
    state.counters["faces"] = faces;
}

void addFrames(const char* name, const Spheres& spheres)
{
    const std::string suffix = std::string("/") + name;
    for (const auto& [kind, function] :
         {std::pair{"picture", &picture}, {"moving", &moving}, {"resting", &resting}})
        benchmark::RegisterBenchmark((kind + suffix).c_str(), function, spheres)
            ->Unit(benchmark::kMillisecond)
            ->MeasureProcessCPUTime()
            ->UseRealTime();
}

const bool kAdded = [] {
    addFrames("empty", kEmpty);
    addFrames("1_body_1M", kOne);
    addFrames("1_body_1M_cut", kOneCut);
    addFrames("1_body_10M", kOneLarge);
    addFrames("200_bodies_1M", k200);
    addFrames("200_spheres_in_1_body_1M", k200InOne);
    addFrames("5000_bodies_1M", k5000);
    addFrames("5000_spheres_in_1_body_1M", k5000InOne);
    benchmark::RegisterBenchmark("hover/1_body_1M", hover, kOne)->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("hover/5000_bodies_1M", hover, k5000)
        ->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("highlight/1_of_100000_faces", changeFace, false)
        ->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("hide/1_of_100000_faces", changeFace, true)
        ->Unit(benchmark::kMicrosecond);
    return true;
}();

} // namespace
} // namespace ViewBench
