#include "help/CommandBrowser.h"

#include "runtime/Guarded.h"

#include <TambCommandsInfra/CommandTable.h>

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QVBoxLayout>

namespace Pellux {

using TambCommandsInfra::CommandTable;

CommandBrowser::CommandBrowser(QWidget* parent)
    : QWidget(parent, Qt::Window),
      m_search(new QLineEdit(this)),
      m_list(new QListWidget(this)),
      m_text(new QPlainTextEdit(this))
{
    setWindowTitle(tr("Commands"));
    setObjectName(QStringLiteral("commands"));
    setFocusProxy(m_search);
    m_search->setPlaceholderText(tr("Search in names and texts"));
    m_search->setAccessibleName(tr("Search for a command"));
    m_search->setClearButtonEnabled(true);
    m_list->setAccessibleName(tr("Commands"));
    m_list->setUniformItemSizes(true);
    m_text->setReadOnly(true);
    m_text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_text->setAccessibleName(tr("What the command does"));
    auto* const both = new QSplitter(this);
    both->addWidget(m_list);
    both->addWidget(m_text);
    both->setStretchFactor(0, 1);
    both->setStretchFactor(1, 2);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_search);
    layout->addWidget(both, 1);
    resize(820, 520);
    connect(m_search, &QLineEdit::textChanged, this,
            [this](const QString& text) { Guarded([&] { Search(text); }); });
    connect(m_list, &QListWidget::currentRowChanged, this,
            [this] { Guarded([this] { showHelp(); }); });
    Search(QString());
}

CommandBrowser::~CommandBrowser() = default;

void CommandBrowser::Search(const QString& text)
{
    const CommandTable& table = CommandTable::Instance();
    const std::string wanted = text.trimmed().toStdString();
    m_list->clear();
    for (const std::string& name : wanted.empty() ? table.Names() : table.Apropos(wanted))
        m_list->addItem(QString::fromStdString(name));
    m_list->setCurrentRow(0);
    showHelp();
}

void CommandBrowser::showHelp()
{
    const QListWidgetItem* const item = m_list->currentItem();
    const auto command =
        item == nullptr ? nullptr : CommandTable::Instance().Find(item->text().toStdString());
    m_text->setPlainText(command == nullptr
                             ? tr("No command has this text.")
                             : QString::fromStdString(CommandTable::HelpText(*command)));
}

} // namespace Pellux
