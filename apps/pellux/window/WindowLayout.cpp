#include "window/WindowLayout.h"

#include "runtime/QtText.h"

#include <OrvikOs/Environment.h>

#include <QMainWindow>
#include <QSettings>
#include <memory>

namespace Pellux::WindowLayout {
namespace {

/// Layouts of another version name other docks.
constexpr int kVersion = 1;

const QString kGeometry = QStringLiteral("window/geometry");
const QString kState = QStringLiteral("window/state");

/// @return null without a home folder.
std::unique_ptr<QSettings> openFile()
{
    const std::wstring folder = OrvikOs::StateFolder(L"pellux");
    return folder.empty()
               ? nullptr
               : std::make_unique<QSettings>(ToQt(folder + L"/window.ini"), QSettings::IniFormat);
}

} // namespace

void Restore(QMainWindow& window)
{
    const auto file = openFile();
    if (file == nullptr)
        return;
    window.restoreGeometry(file->value(kGeometry).toByteArray());
    window.restoreState(file->value(kState).toByteArray(), kVersion);
}

void Save(const QMainWindow& window)
{
    const auto file = openFile();
    if (file == nullptr)
        return;
    file->setValue(kGeometry, window.saveGeometry());
    file->setValue(kState, window.saveState(kVersion));
}

} // namespace Pellux::WindowLayout
