// A window that files are dragged out of: a small one at the place given by the first two
// arguments, display pixels. The others are the files. Ends a while after they were dropped, with 0
// when they were taken.

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <QWidget>

namespace {

constexpr int kSide = 80;
constexpr int kAnswerMs = 2000;

class Source final : public QWidget
{
public:
    explicit Source(const QStringList& files)
    {
        for (const QString& file : files)
            m_urls << QUrl::fromLocalFile(file);
    }

protected:
    void mousePressEvent(QMouseEvent*) override
    {
        // Owned by the drag, which goes by itself.
        auto* const files = new QMimeData;
        files->setUrls(m_urls);
        auto* const drag = new QDrag(this);
        drag->setMimeData(files);
        const Qt::DropAction action = drag->exec(Qt::CopyAction);
        // Who takes the files asks for them after the button was let go.
        QTimer::singleShot(kAnswerMs, this,
                           [action] { QCoreApplication::exit(action == Qt::CopyAction ? 0 : 1); });
    }

private:
    QList<QUrl> m_urls;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    Source source(arguments.mid(3));
    source.setWindowTitle(QStringLiteral("Source of files"));
    source.setGeometry(arguments.value(1).toInt(), arguments.value(2).toInt(), kSide, kSide);
    source.show();
    return QApplication::exec();
}
