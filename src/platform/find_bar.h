#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;

/// The bar in which one types what is looked for in a text. It only asks; its owner finds.
class FindBar final : public QWidget
{
    Q_OBJECT

public:
    explicit FindBar(QWidget *parent);

    [[nodiscard]] QString words() const;
    /// Shows the bar with its words selected, ready to be typed over; other words unless they are empty.
    void open(const QString &words);
    void showFound(bool found);

Q_SIGNALS:
    /// The words have changed.
    void wordsChanged();
    void nextAsked();
    void previousAsked();
    void closed();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void dismiss();

    QLineEdit *m_words;
    QLabel *m_notFound;
};
