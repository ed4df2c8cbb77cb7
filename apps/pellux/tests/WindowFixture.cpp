#include "WindowFixture.h"

#include <OrvikCore/MessageType.h>
#include <OrvikOs/ExecutablePath.h>
#include <OrvikOs/Utf8.h>

#include <runtime/QtText.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <array>
#include <sstream>

namespace {

/// How long something that has to come is waited for, milliseconds; it comes much sooner.
constexpr int kPatienceMs = 10'000;

/// How often it is looked for at least, milliseconds.
constexpr int kLookMs = 10;

using Corner = std::array<int, 3>;

/// Two triangles of a square given by its corners in order.
void writeSquare(std::ostream& file, const std::array<Corner, 4>& corners)
{
    for (const auto& triangle : {std::array{0, 1, 2}, std::array{0, 2, 3}}) {
        file << "facet normal 0 0 0\nouter loop\n";
        for (const int index : triangle) {
            const Corner& corner = corners[static_cast<std::size_t>(index)];
            file << "vertex " << corner[0] << ' ' << corner[1] << ' ' << corner[2] << '\n';
        }
        file << "endloop\nendfacet\n";
    }
}

std::string cubeText()
{
    std::ostringstream file;
    file << "solid cube\n";
    const int a = 10;
    writeSquare(file, {{{0, 0, 0}, {0, a, 0}, {a, a, 0}, {a, 0, 0}}});
    writeSquare(file, {{{0, 0, a}, {a, 0, a}, {a, a, a}, {0, a, a}}});
    writeSquare(file, {{{0, 0, 0}, {a, 0, 0}, {a, 0, a}, {0, 0, a}}});
    writeSquare(file, {{{0, a, 0}, {0, a, a}, {a, a, a}, {a, a, 0}}});
    writeSquare(file, {{{0, 0, 0}, {0, 0, a}, {0, a, a}, {0, a, 0}}});
    writeSquare(file, {{{a, 0, 0}, {a, a, 0}, {a, a, a}, {a, 0, a}}});
    file << "endsolid cube\n";
    return file.str();
}

} // namespace

WindowFixture::WindowFixture()
{
    const QByteArray folder = QByteArray::fromStdString(m_dir.Path().string());
    qputenv("XDG_CONFIG_HOME", folder + "/config");
    qputenv("XDG_STATE_HOME", folder + "/state");
    OrvikOs::SetExecutablePath(OrvikOs::Utf8ToWide(ORVIK_RUN_FOLDER "/pellux"));
    options.runStartupScripts = false;
}

WindowFixture::~WindowFixture()
{
    Close();
}

void WindowFixture::Open()
{
    m_run = std::make_unique<Pellux::WindowRun>(options);
    const Pellux::CommandRunner& runner = m_run->Runner();
    QObject::connect(&runner, &Pellux::CommandRunner::Echoed,
                     [this](const QString& form) { echoed << form; });
    QObject::connect(
        &runner, &Pellux::CommandRunner::Printed, [this](const QString& text, int type) {
            const bool isError = type == static_cast<int>(OrvikCore::MessageType::Error);
            (isError ? errors : printed) << text;
        });
    std::wstring reason;
    ASSERT_EQ(m_run->Start(reason), Pellux::StartResult::Good) << OrvikOs::WideToUtf8(reason);
}

int WindowFixture::Close()
{
    const int code = m_run ? m_run->Stop() : 0;
    m_run.reset();
    return code;
}

bool WindowFixture::Do(const char* script)
{
    return Runner().Run(QString::fromUtf8(script));
}

bool WindowFixture::Until(const std::function<bool()>& holds)
{
    QElapsedTimer waited;
    waited.start();
    // What is waited for need not be an event.
    QTimer look;
    look.start(kLookMs);
    while (!holds()) {
        if (waited.elapsed() > kPatienceMs)
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

QString WindowFixture::WriteCube(const char* name)
{
    return Pellux::ToQt(m_dir.Write(name, cubeText()));
}
