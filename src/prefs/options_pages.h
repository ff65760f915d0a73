#pragma once

#include <QFrame>

#include <array>

class CaptionLabel;
class Prompts;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QRadioButton;
class Swatch;
class clsSkinResourceNew;
struct Options;

/// A page of the options dialog: controls with captions beside them; the first of them is the page's for the
/// keyboard. It stands inside the dialog's frame and holds nothing but what is to be seen on it.
class OptionsPage : public QFrame
{
    Q_OBJECT

public:
    virtual void fill(const Options &options) = 0;
    /// Changes the options of this page and no others.
    virtual void writeTo(Options &options) const = 0;

    /// The palette is the window's; a page that no skin has a frame for gets a line round it.
    void dress(const clsSkinResourceNew &skin, QPalette palette);

protected:
    OptionsPage(QWidget &window, const char16_t *name);

    /// The control, if any, is named after the caption beside it unless it has a name.
    [[nodiscard]] CaptionLabel *makeCaption(std::size_t number, const QString &text,
                                            QWidget *control = nullptr);

    QGridLayout *m_grid;
    QList<QWidget *> m_native; ///< the toolkit's own controls
};

/// The general options.
class GeneralPage final : public OptionsPage
{
    Q_OBJECT

public:
    explicit GeneralPage(QWidget &window);

    void fill(const Options &options) override;
    void writeTo(Options &options) const override;

private:
    QWidget *makeWordFilter();

    QComboBox *cmbAccept;
    QCheckBox *chkEmoticons;
    QCheckBox *chkIgnoreColours;
    std::array<QRadioButton *, 3> optWordFilter;
    QCheckBox *chkLeave;
    QCheckBox *chkPyloxUsers;
};

/// The colours of the message board.
class ColoursPage final : public OptionsPage
{
    Q_OBJECT

public:
    ColoursPage(QWidget &window, Prompts &prompts);

    void fill(const Options &options) override;
    void writeTo(Options &options) const override;

private:
    void choose(Swatch *swatch);

    Prompts &m_prompts;
    std::array<Swatch *, 14> lblColour;
};
