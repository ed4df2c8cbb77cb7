#include "Options.h"
#include "runtime/QtText.h"
#include "window/WindowRun.h"

#include <OrvikOs/FatalReport.h>

#include <QApplication>
#include <QSurfaceFormat>
#include <QTimer>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>

namespace {

/// Exit code of a program that cannot start.
constexpr int kCannotStart = 3;

/// Qt ends the program itself when it reaches no display; the reason is told as every other.
void tellWhyNot(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    const std::string text = message.toStdString();
    if (type != QtFatalMsg) {
        std::cerr << text << std::endl;
        return;
    }
    // Its first line says what has happened, the others what users of Qt may do.
    std::cerr << "pellux: no window can be opened: " << text.substr(0, text.find('\n'))
              << std::endl;
    std::_Exit(kCannotStart);
}

int run(const Pellux::WindowOptions& options)
{
    Pellux::WindowRun run(options);
    std::wstring reason;
    const Pellux::StartResult result = run.Start(reason);
    if (result != Pellux::StartResult::Good) {
        std::cerr << "pellux: " << Pellux::ToQt(reason).toStdString() << std::endl;
        return result == Pellux::StartResult::BadConfiguration ? 2 : kCannotStart;
    }
    QTimer::singleShot(0, &run.Runner(), [&run] { run.RunCommandLine(); });
    const int code = QApplication::exec();
    const int stopCode = run.Stop();
    return code != 0 ? code : stopCode;
}

} // namespace

int main(int argc, char** argv)
{
    // Before anything else looks after faults.
    OrvikOs::ReportFatalFaults();
    // The version that the view needs at least; drivers give the newest that is compatible.
    QSurfaceFormat format;
    format.setVersion(3, 3);
    format.setProfile(QSurfaceFormat::CoreProfile);
    QSurfaceFormat::setDefaultFormat(format);
    try {
        Pellux::WindowOptions options;
        // Mistakes are told, and help is given, without a display.
        const Pellux::ParseResult parsed = Pellux::ParseOptions(argc, argv, options);
        if (!parsed.run) {
            (parsed.exitCode == 0 ? std::cout : std::cerr) << parsed.message;
            return parsed.exitCode;
        }
        int noArguments = 1;
        const QtMessageHandler previous = qInstallMessageHandler(&tellWhyNot);
        QApplication application(noArguments, argv);
        qInstallMessageHandler(previous);
        QApplication::setApplicationName(QStringLiteral("Pellux"));
        QApplication::setApplicationVersion(Pellux::ToQt(Pellux::ProgramVersion()));
        QApplication::setDesktopFileName(QStringLiteral("pellux"));
        return run(options);
    } catch (const std::exception& error) {
        std::cerr << "pellux: " << error.what() << std::endl;
        return kCannotStart;
    }
}
