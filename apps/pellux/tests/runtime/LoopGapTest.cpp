#include <WindowFixture.h>

#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <fstream>

namespace {

/// How often the event loop is looked at, milliseconds.
constexpr int kTickMs = 2;

/// Writes a binary STL file of a waved sheet with 2 * side * side triangles.
void writeSheet(const std::filesystem::path& path, int side)
{
    std::ofstream file(path, std::ios::binary);
    const std::string head(80, ' ');
    file.write(head.data(), 80);
    const auto count = static_cast<std::uint32_t>(2 * side * side);
    file.write(reinterpret_cast<const char*>(&count), 4);
    const auto height = [](int x, int y) {
        return std::sin(static_cast<float>(x) * 0.05F) * std::cos(static_cast<float>(y) * 0.05F);
    };
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            for (const auto& corners :
                 {std::array{0, 0, 1, 0, 1, 1}, std::array{0, 0, 1, 1, 0, 1}}) {
                std::array<float, 12> numbers{};
                for (std::size_t i = 0; i < 3; ++i) {
                    const int cornerX = x + corners[2 * i];
                    const int cornerY = y + corners[2 * i + 1];
                    numbers[3 + 3 * i] = static_cast<float>(cornerX);
                    numbers[4 + 3 * i] = static_cast<float>(cornerY);
                    numbers[5 + 3 * i] = height(cornerX, cornerY);
                }
                file.write(reinterpret_cast<const char*>(numbers.data()), 48);
                file.write("\0\0", 2);
            }
}

/// Measures while a file is loaded how long the event loop does nothing at a time, and prints it.
/// ORVIK_GAP_FILES names other files, with colons between: what counts is measured with large ones.
class EventLoop : public WindowFixture
{
protected:
    double WorstGapOf(const QString& path)
    {
        QElapsedTimer since;
        double worst = 0.0;
        QTimer timer;
        timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer, &QTimer::timeout, [&] {
            worst = std::max(worst, static_cast<double>(since.nsecsElapsed()) / 1e6 - kTickMs);
            since.start();
            ++m_ticks;
        });
        since.start();
        timer.start(kTickMs);
        QElapsedTimer whole;
        whole.start();
        EXPECT_TRUE(Do(qPrintable(QStringLiteral("(doc:load \"%1\")").arg(path))))
            << qPrintable(errors.join(u'\n'));
        const qint64 loaded = whole.elapsed();
        Until([&] { return whole.elapsed() > loaded + 500; });
        std::printf("%s: loaded in %lld ms, worst gap of the event loop %.0f ms\n",
                    qPrintable(path), static_cast<long long>(loaded), worst);
        return worst;
    }

    int m_ticks = 0;
};

TEST_F(EventLoop, GoesOnWhileAFileIsLoaded)
{
    Open();
    QStringList files =
        qEnvironmentVariable("ORVIK_GAP_FILES").split(QLatin1Char(':'), Qt::SkipEmptyParts);
    if (files.isEmpty()) {
        writeSheet(Dir().Path() / "sheet.stl", 400);
        files << QString::fromStdString((Dir().Path() / "sheet.stl").string());
    }
    for (const QString& file : files)
        WorstGapOf(file);

    EXPECT_GT(m_ticks, 10);
}

} // namespace
