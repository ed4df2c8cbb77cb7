#include "runtime/QtText.h"

#include <Replay.h>

#include <QTextDocument>

namespace Pellux {

QString ToQt(const std::wstring& text)
{
    return QString::fromStdWString(text);
}

std::wstring FromQt(const QString& text)
{
    return text.toStdWString();
}

QString Quoted(const QString& text)
{
    return ToQt(QuotedForScript(FromQt(text)));
}

QString PlainToolTip(const QString& text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal) : text;
}

} // namespace Pellux
