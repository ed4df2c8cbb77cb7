#include "tree/WildcardPattern.h"

namespace Pellux {

WildcardPattern::WildcardPattern(const QString& text) : m_pattern(text.trimmed().toCaseFolded())
{
    const bool hasWildcard =
        m_pattern.contains(QLatin1Char('*')) || m_pattern.contains(QLatin1Char('?'));
    if (!m_pattern.isEmpty() && !hasWildcard)
        m_pattern = QLatin1Char('*') + m_pattern + QLatin1Char('*');
}

bool WildcardPattern::Matches(const QString& name) const
{
    const QString folded = name.toCaseFolded();
    qsizetype at = 0;
    qsizetype inPattern = 0;
    qsizetype star = -1; // The last one met; -1 for none.
    qsizetype afterStar = 0;
    while (at < folded.size()) {
        const QChar wanted = inPattern < m_pattern.size() ? m_pattern[inPattern] : QChar();
        if (wanted == QLatin1Char('*')) {
            star = inPattern++;
            afterStar = at;
        } else if (inPattern < m_pattern.size() &&
                   (wanted == QLatin1Char('?') || wanted == folded[at])) {
            ++inPattern;
            ++at;
        } else if (star >= 0) {
            // The star takes one character more.
            inPattern = star + 1;
            at = ++afterStar;
        } else {
            return false;
        }
    }
    while (inPattern < m_pattern.size() && m_pattern[inPattern] == QLatin1Char('*'))
        ++inPattern;
    return inPattern == m_pattern.size();
}

} // namespace Pellux
