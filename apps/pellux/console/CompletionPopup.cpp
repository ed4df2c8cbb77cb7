#include "console/CompletionPopup.h"

#include "runtime/Guarded.h"
#include "runtime/QtText.h"

#include <OrvikCore/SessionMgr.h>

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <algorithm>

namespace Pellux {
namespace {

constexpr int kPage = 8;
constexpr int kFewestRows = 8;
constexpr int kMostRows = 14;

/// Pixels of names and help together.
constexpr int kWidth = 680;

} // namespace

QString ExtensionHelp(const QString& name)
{
    std::wstring help;
    if (name.isEmpty() || !OrvikCore::SessionMgr::Instance().FindExtensionHelp(FromQt(name), help))
        return {};
    return ToQt(help);
}

CompletionPopup::CompletionPopup(QWidget* parent)
    : QFrame(parent, Qt::ToolTip), m_list(new QListWidget(this)), m_help(new QLabel(this))
{
    setFrameShape(QFrame::StyledPanel);
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(tr("Completions"));
    m_list->setFocusPolicy(Qt::NoFocus);
    m_list->setAccessibleName(tr("Completions"));
    m_list->setUniformItemSizes(true);
    m_help->setWordWrap(true);
    m_help->setTextFormat(Qt::PlainText);
    m_help->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    m_help->setMargin(6);
    m_help->setAccessibleName(tr("Help"));
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->addWidget(m_list, 2);
    layout->addWidget(m_help, 3);
    connect(m_list, &QListWidget::currentRowChanged, this,
            [this] { Guarded([this] { showHelp(); }); });
    connect(m_list, &QListWidget::itemClicked, this, [this] { Guarded([this] { choose(); }); });
}

CompletionPopup::~CompletionPopup() = default;

void CompletionPopup::Open(const QString& word, const QPoint& place, bool asked)
{
    std::vector<std::wstring> names;
    OrvikCore::SessionMgr::Instance().FindExtensions(FromQt(word), names);
    if (names.empty() || (names.size() == 1 && ToQt(names.front()) == word)) {
        hide();
        return;
    }
    m_takesReturn = asked;
    m_list->clear();
    for (const std::wstring& name : names)
        m_list->addItem(ToQt(name));
    m_list->setCurrentRow(0);
    const int rows = std::clamp(m_list->count(), kFewestRows, kMostRows);
    resize(kWidth, rows * m_list->sizeHintForRow(0) + 8);
    QFrame::move(place.x(), place.y() - height());
    show();
    raise();
}

bool CompletionPopup::TakeKey(const QKeyEvent& event)
{
    if (!isVisible())
        return false;
    switch (event.key()) {
    case Qt::Key_Up:
        move(-1);
        return true;
    case Qt::Key_Down:
        move(1);
        return true;
    case Qt::Key_PageUp:
        move(-kPage);
        return true;
    case Qt::Key_PageDown:
        move(kPage);
        return true;
    case Qt::Key_Escape:
        hide();
        return true;
    case Qt::Key_Tab:
        choose();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!m_takesReturn) {
            hide();
            return false;
        }
        choose();
        return true;
    default:
        return false;
    }
}

QString CompletionPopup::Marked() const
{
    const QListWidgetItem* const item = isVisible() ? m_list->currentItem() : nullptr;
    return item == nullptr ? QString() : item->text();
}

void CompletionPopup::move(int steps)
{
    m_takesReturn = true;
    m_list->setCurrentRow(std::clamp(m_list->currentRow() + steps, 0, m_list->count() - 1));
}

void CompletionPopup::choose()
{
    const QListWidgetItem* const item = m_list->currentItem();
    const QString name = item == nullptr ? QString() : item->text();
    hide();
    if (!name.isEmpty())
        Q_EMIT Chosen(name);
}

void CompletionPopup::showHelp()
{
    const QListWidgetItem* const item = m_list->currentItem();
    m_help->setText(item == nullptr ? QString() : ExtensionHelp(item->text()));
}

} // namespace Pellux
