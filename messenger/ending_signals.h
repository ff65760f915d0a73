#pragma once

#include <QObject>

namespace messenger {

/// Turns the system's wishes that the program end (SIGTERM, SIGINT) into a signal on the event loop. One
/// object at a time.
class EndingSignals final : public QObject
{
    Q_OBJECT

public:
    explicit EndingSignals(QObject *parent = nullptr);
    ~EndingSignals() override;

Q_SIGNALS:
    void received();

private:
    int m_readEnd = -1;
};

} // namespace messenger
