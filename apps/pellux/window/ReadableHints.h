#ifndef PELLUX_WINDOW_READABLEHINTS_H
#define PELLUX_WINDOW_READABLEHINTS_H

#include <QColor>
#include <QObject>
#include <QPalette>

namespace Pellux {

/// Keeps the hints of empty fields readable in the whole application, whatever palette holds now
/// and later. A desktop that sets the colours of text and background alone leaves the colour of
/// hints as it is for a light one. A colour that can be read stays.
/// @thread Main thread; the application object outlives it.
class ReadableHints final : public QObject
{
    Q_OBJECT

public:
    ReadableHints();

    /// The colours of hints are those of the desktop again.
    ~ReadableHints() override;

    ReadableHints(const ReadableHints&) = delete;
    ReadableHints& operator=(const ReadableHints&) = delete;

    /// @return how well a colour can be told from one behind it: 1 for not at all to 21 for black
    ///         on white. As WCAG 2.1 defines it, "contrast ratio".
    static double Contrast(const QColor& front, const QColor& behind);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void mend();
    void takeBack();

    QPalette m_mended; ///< Has the hints' colours alone; none while the desktop's own are good.
    bool m_isMending = false;
};

} // namespace Pellux

#endif
