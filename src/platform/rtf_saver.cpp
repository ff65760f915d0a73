#include "platform/rtf_saver.h"

#include "platform/whole_file.h"

#include <QElapsedTimer>
#include <QProgressDialog>
#include <QTimerEvent>

namespace {

constexpr int progressAfterMilliseconds = 500;
constexpr int portionMilliseconds = 8;
constexpr qsizetype paragraphsAtOnce = 100;

} // namespace

RtfSaver::RtfSaver(RichDocument text, const QString &path, QWidget *window)
    : QObject(window),
      m_text(std::move(text)),
      m_file(path),
      m_progress(std::make_unique<QProgressDialog>(tr("Saving..."), tr("Cancel"), 0,
                                                   static_cast<int>(m_text.paragraphCount()), window))
{
    m_progress->setMinimumDuration(progressAfterMilliseconds);
    m_progress->setWindowTitle(tr("Save Session"));
    m_progress->setAutoReset(false);
}

RtfSaver::~RtfSaver() = default;

void RtfSaver::start()
{
    m_writer = std::make_unique<RtfWriter>(m_text);
    m_timer.start(0, this);
}

void RtfSaver::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_timer.timerId()) {
        return;
    }
    if (m_progress->wasCanceled() || !writePortion()) {
        end(false);
    } else if (m_written == m_text.paragraphCount()) {
        end(write(RtfWriter::footer()) && commitWhole(m_file));
    } else {
        m_progress->setValue(static_cast<int>(m_written));
    }
}

bool RtfSaver::writePortion()
{
    QElapsedTimer elapsed;
    elapsed.start();
    if (!m_file.isOpen() && (!m_file.open(QIODevice::WriteOnly) || !write(m_writer->header()))) {
        return false;
    }
    while (m_written < m_text.paragraphCount() && !elapsed.hasExpired(portionMilliseconds)) {
        const qsizetype last = std::min(m_written + paragraphsAtOnce, m_text.paragraphCount());
        if (!write(m_writer->paragraphs(m_written, last))) {
            return false;
        }
        m_written = last;
    }
    return true;
}

bool RtfSaver::write(const QByteArray &rtf)
{
    return m_file.write(rtf) == rtf.size();
}

void RtfSaver::end(bool saved)
{
    m_timer.stop();
    m_file.cancelWriting(); // no effect on what is committed
    m_progress->reset();
    Q_EMIT finished(saved);
}
