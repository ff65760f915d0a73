#pragma once

#include <QDialog>

class QCheckBox;
class QFontComboBox;
class QLabel;
class QListWidget;

/// Chooses a font among those of the screen, in whole sizes between two limits.
class FontDialog final : public QDialog
{
    Q_OBJECT

public:
    FontDialog(const QFont &current, int smallest, int largest, QWidget *parent);

    [[nodiscard]] QFont chosenFont() const;

private:
    void showSample();

    QFontComboBox *m_family;
    QListWidget *m_sizes;
    QCheckBox *m_bold;
    QCheckBox *m_italic;
    QCheckBox *m_underline;
    QLabel *m_sample;
};
