#pragma once

#include "richtext/rtf_writer.h"

#include <QBasicTimer>
#include <QObject>
#include <QSaveFile>

#include <memory>

class QProgressDialog;
class QWidget;

/// Writes a text into a file as RTF, a portion at a time between other events, so that the windows stay
/// alive. When it takes longer than half a second it shows how far it is, and can be stopped. The file
/// appears whole or not at all.
class RtfSaver final : public QObject
{
    Q_OBJECT

public:
    /// Works on the text that it is given, whatever happens to the window meanwhile.
    RtfSaver(RichDocument text, const QString &path, QWidget *window);
    ~RtfSaver() override;

    void start();

Q_SIGNALS:
    /// Once. False when the file could not be written, or the user has stopped it.
    void finished(bool saved);

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    [[nodiscard]] bool writePortion();
    [[nodiscard]] bool write(const QByteArray &rtf);
    void end(bool saved);

    RichDocument m_text;
    QSaveFile m_file;
    std::unique_ptr<RtfWriter> m_writer;
    std::unique_ptr<QProgressDialog> m_progress;
    QBasicTimer m_timer;
    qsizetype m_written = 0; ///< paragraphs
};
