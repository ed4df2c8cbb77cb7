#include "actions/Asker.h"

#include "runtime/QtText.h"

#include <OrvikCore/SessionMgr.h>

#include <QColorDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>

namespace Pellux {
namespace {

QString firstOf(const QString& folder, const std::wstring& other)
{
    return folder.isEmpty() ? ToQt(other) : folder;
}

} // namespace

IAsker::~IAsker() = default;

DialogAsker::DialogAsker(QWidget& parent) : m_parent(parent) {}

DialogAsker::~DialogAsker() = default;

QString DialogAsker::FileToOpen(const QString& title, const QString& filter)
{
    const auto& manager = OrvikCore::SessionMgr::Instance();
    const QString path = QFileDialog::getOpenFileName(
        &m_parent, title, firstOf(m_folder, manager.GetDefaultInputDirectory()), filter);
    if (!path.isEmpty())
        m_folder = QFileInfo(path).path();
    return path;
}

QString DialogAsker::FileToSave(const QString& title, const QString& filter)
{
    const auto& manager = OrvikCore::SessionMgr::Instance();
    const QString path = QFileDialog::getSaveFileName(
        &m_parent, title, firstOf(m_folder, manager.GetDefaultOutputDirectory()), filter);
    if (!path.isEmpty())
        m_folder = QFileInfo(path).path();
    return path;
}

QString DialogAsker::Folder(const QString& title)
{
    return QFileDialog::getExistingDirectory(&m_parent, title, m_folder);
}

QString DialogAsker::Text(const QString& title, const QString& label)
{
    return QInputDialog::getText(&m_parent, title, label);
}

QColor DialogAsker::Color(const QString& title, const QColor& present)
{
    return QColorDialog::getColor(present, &m_parent, title);
}

} // namespace Pellux
