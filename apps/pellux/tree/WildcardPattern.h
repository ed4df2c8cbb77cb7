#ifndef PELLUX_TREE_WILDCARDPATTERN_H
#define PELLUX_TREE_WILDCARDPATTERN_H

#include <QString>

namespace Pellux {

/// A pattern for names: "*" stands for any text, "?" for one character; upper and lower case are
/// alike. A pattern without either is looked for anywhere in a name. A value.
class WildcardPattern
{
public:
    WildcardPattern() = default;
    /// @param text  Blanks around it are passed over.
    explicit WildcardPattern(const QString& text);

    /// Tells whether there is nothing to look for.
    bool IsEmpty() const { return m_pattern.isEmpty(); }

    bool Matches(const QString& name) const;

private:
    QString m_pattern; ///< Folded; empty for none.
};

} // namespace Pellux

#endif
