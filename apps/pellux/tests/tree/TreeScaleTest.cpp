#include "TreeWindow.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QScrollBar>
#include <algorithm>
#include <fstream>
#include <iostream>

namespace {

constexpr int kRows = 100'000;
constexpr int kPages = 200;

/// Three corners: 0 0 0, 0.8 0 0 and 0 0.8 0.
constexpr char kCorners[] = "AAAAAAAAAAAAAAAAzcxMPwAAAAAAAAAAAAAAAM3MTD8AAAAA";

/// A file with as many nodes as there are to be rows, each with the same triangle.
class LargeTree : public TreeWindow
{
protected:
    QString writeNodes()
    {
        const std::string path = (Dir().Path() / "nodes.gltf").string();
        std::ofstream file(path);
        file << R"({"asset":{"version":"2.0"},"scene":0,"scenes":[{"nodes":[)";
        for (int i = 0; i < kRows; ++i)
            file << (i == 0 ? "" : ",") << i;
        file << "]}],\"nodes\":[";
        for (int i = 0; i < kRows; ++i)
            file << (i == 0 ? "" : ",") << R"({"name":"part)" << i
                 << R"(","mesh":0,"translation":[)" << i % 400 << ',' << i / 400 << ",0]}";
        file << R"(],"meshes":[{"primitives":[{"attributes":{"POSITION":0}}]}],"accessors":[)"
             << R"({"bufferView":0,"componentType":5126,"count":3,"type":"VEC3",)"
             << R"("min":[0,0,0],"max":[0.8,0.8,0]}],"bufferViews":[{"buffer":0,"byteLength":36}],)"
             << R"("buffers":[{"byteLength":36,"uri":"data:application/octet-stream;base64,)"
             << kCorners << "\"}]}";
        return QString::fromStdString(path);
    }

    /// @return what something took, milliseconds.
    template <typename Function> static double time(Function&& function)
    {
        QElapsedTimer clock;
        clock.start();
        function();
        return static_cast<double>(clock.nsecsElapsed()) / 1e6;
    }

    /// Scrolls down page by page, each drawn before the next; what each took, milliseconds, sorted.
    std::vector<double> scrollPages()
    {
        QScrollBar& bar = *View().verticalScrollBar();
        std::vector<double> times;
        for (int i = 0; i < kPages; ++i)
            times.push_back(time([&] {
                bar.setValue(bar.value() + bar.pageStep());
                View().viewport()->repaint();
            }));
        std::sort(times.begin(), times.end());
        return times;
    }
};

TEST_F(LargeTree, IsOpenedExpandedAndScrolled)
{
    Open();
    const QString file = writeNodes();
    const double openMs = time([&] { Load(file); });
    const QModelIndex container = RowAt({0, 0});

    const double expandMs = time([&] {
        View().expand(container);
        View().viewport()->repaint();
    });
    ASSERT_EQ(Model().rowCount(container), kRows);
    const std::vector<double> pages = scrollPages();
    const double endMs = time([this] {
        View().scrollToBottom();
        View().viewport()->repaint();
    });

    const QModelIndex last = Model().index(kRows - 1, 0, container);
    EXPECT_TRUE(View().viewport()->rect().intersects(View().visualRect(last)));
    const double selectMs = time([this] { EXPECT_TRUE(Do("(sel:by-name \"part99999\")")); });
    std::cout << "100,000 rows: open " << openMs << " ms, expand " << expandMs << " ms, a page "
              << pages[kPages / 2] << " ms (worst " << pages.back() << " ms), to the end " << endMs
              << " ms, select by name " << selectMs << " ms\n";
}

} // namespace
