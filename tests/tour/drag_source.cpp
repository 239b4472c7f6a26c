// drag_source FILE: a file manager with one file: a window in the corner of the screen, from which the file can be
// dragged once. It offers to move the file, or to copy it. Exits with 0 if the file was copied, else with 1.
#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <QWidget>

#include <cstdlib>

namespace {

constexpr QRect kPlace(0, 0, 60, 60);

class Source final : public QWidget {
public:
    explicit Source(QUrl file)
        : file_(std::move(file))
    {
        setWindowTitle(QStringLiteral("drag source"));
        setWindowFlag(Qt::X11BypassWindowManagerHint); // in front of the frame, without its activation
        setGeometry(kPlace);
    }

protected:
    void mousePressEvent(QMouseEvent*) override
    {
        auto* dragged = new QMimeData;
        dragged->setUrls({ file_ });
        auto* drag = new QDrag(this);
        drag->setMimeData(dragged);
        connect(
            drag, &QObject::destroyed, this, [this] { QCoreApplication::exit(status_); }); // the data has been taken
        if (drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::MoveAction) == Qt::CopyAction)
            status_ = EXIT_SUCCESS;
    }

private:
    QUrl file_;
    int status_ = EXIT_FAILURE;
};

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    Source source(QUrl::fromLocalFile(QCoreApplication::arguments().value(1)));
    source.show();
    return QApplication::exec();
}
