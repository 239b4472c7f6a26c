// tests/tour/instrument.h: the simulated receiver of the tour.
#pragma once

#include <QProcess>
#include <QString>

namespace tarvik {

/// Keeps its port once it has found one.
class TourInstrument {
public:
    explicit TourInstrument(QString root);
    ~TourInstrument();

    /// False, with a message on standard error, if it does not listen.
    bool Start();
    void Stop();

    int Port() const
    {
        return port_;
    }

    /// Path of a file, given by its path on the instrument with `/` as separator.
    QString Path(const QString& name) const
    {
        return root_ + u'/' + name;
    }

private:
    QString root_;
    QProcess process_;
    int port_ = 0;
};

} // namespace tarvik
