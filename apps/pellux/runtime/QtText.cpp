#include "runtime/QtText.h"

#include <Replay.h>

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

} // namespace Pellux
