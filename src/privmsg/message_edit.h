#pragma once

#include <QPlainTextEdit>

/// The box in which a private message is written: one line's worth of text, shown on as many as it needs.
/// Enter only makes returnPressed(); line ends that are pasted become spaces, because no message can hold
/// them.
class MessageEdit final : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit MessageEdit(QWidget *parent = nullptr);

    /// What is written, on one line.
    [[nodiscard]] QString text() const;
    [[nodiscard]] bool isEmpty() const;
    /// Leaves what has been typed behind it; nothing happens when the text begins otherwise by now.
    void removeSent(const QString &sent);

    /// The height of the box for that many lines, in pixels.
    [[nodiscard]] int heightOf(int lines) const;

Q_SIGNALS:
    void returnPressed();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    [[nodiscard]] bool canInsertFromMimeData(const QMimeData *source) const override;
    void insertFromMimeData(const QMimeData *source) override;
};
