#include "runtime/QtText.h"
#include "window/WindowRun.h"

#include <QApplication>
#include <QTimer>
#include <exception>
#include <iostream>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Pellux"));
    Pellux::WindowOptions options;
    options.files = QApplication::arguments().mid(1);
    try {
        Pellux::WindowRun run(options);
        std::wstring reason;
        if (!run.Start(reason)) {
            std::cerr << "pellux: " << Pellux::ToQt(reason).toStdString() << std::endl;
            return 3;
        }
        QTimer::singleShot(0, &run.Runner(), [&run] { run.RunCommandLine(); });
        const int code = QApplication::exec();
        const int stopCode = run.Stop();
        return code != 0 ? code : stopCode;
    } catch (const std::exception& error) {
        std::cerr << "pellux: " << error.what() << std::endl;
        return 3;
    }
}
