#include "files/FileNotice.h"

#include "runtime/Guarded.h"

#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QVBoxLayout>

namespace Pellux {
namespace {

/// Characters that the notice shows; the console and the copy have all.
constexpr int kLongest = 600;

constexpr int kMargin = 12;
constexpr int kMostWidth = 720;

} // namespace

FileNotice::FileNotice(QMainWindow* window)
    : QFrame(window),
      m_window(window),
      m_view(window->findChild<QWidget*>(QStringLiteral("view"))),
      m_text(new QLabel(this))
{
    setObjectName(QStringLiteral("file-notice"));
    setAccessibleName(tr("Notice about a file"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    m_text->setForegroundRole(QPalette::ToolTipText);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_text->setAccessibleName(tr("What went wrong"));
    auto* const rows = new QVBoxLayout(this);
    rows->addWidget(m_text, 1);
    auto* const buttons = new QHBoxLayout;
    buttons->addStretch(1);
    rows->addLayout(buttons);
    const auto addButton = [&](const QString& text, const QString& tip) {
        auto* const button = new QPushButton(text, this);
        button->setToolTip(tip);
        button->setAccessibleName(tip);
        buttons->addWidget(button);
        return button;
    };
    connect(addButton(tr("&Copy"), tr("Copy the message")), &QPushButton::clicked, this,
            [this] { Guarded([this] { QGuiApplication::clipboard()->setText(m_whole); }); });
    connect(addButton(tr("C&lose"), tr("Close the message")), &QPushButton::clicked, this,
            [this] { hide(); });
    m_view->installEventFilter(this);
    hide();
}

FileNotice::~FileNotice() = default;

void FileNotice::Show(const QString& text)
{
    m_whole = text.trimmed();
    QString shown = m_whole.left(kLongest);
    if (m_whole.size() > kLongest)
        shown += QStringLiteral("...");
    m_text->setText(shown);
    place();
    show();
    raise();
}

QString FileNotice::Text() const
{
    return m_whole;
}

void FileNotice::place()
{
    const QRect area(m_view->mapTo(m_window, QPoint()), m_view->size());
    const int width = std::min(kMostWidth, area.width() - 2 * kMargin);
    resize(width, std::max(heightForWidth(width), sizeHint().height()));
    move(area.x() + (area.width() - width) / 2, area.y() + kMargin);
}

bool FileNotice::eventFilter(QObject*, QEvent* event)
{
    const bool isMoved = event->type() == QEvent::Resize || event->type() == QEvent::Move;
    if (isMoved && isVisible())
        Guarded([this] { place(); });
    return false;
}

} // namespace Pellux
