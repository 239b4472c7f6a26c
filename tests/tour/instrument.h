// tests/tour/instrument.h: the simulated receiver beside the tour.
#pragma once

#include <QProcess>
#include <QString>

namespace tarvik {

/// Always at the same port, once it has found one.
class TourInstrument {
public:
    explicit TourInstrument(QString root);
    ~TourInstrument();

    /// False, told on standard error, when it does not listen.
    bool Start();
    void Stop();

    int Port() const
    {
        return port_;
    }

    /// Path of a file, by its path on the instrument with `/` between.
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
