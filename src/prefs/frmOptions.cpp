#include "prefs/frmOptions.h"

#include "controls/SkinFrame.h"
#include "controls/dressing.h"
#include "controls/fitting_button.h"
#include "controls/make_control.h"
#include "core/clsMyApp.h"
#include "prefs/frmIgnore.h"
#include "prefs/options_pages.h"
#include "room/saved_settings.h"

#include <QCloseEvent>
#include <QShortcut>

namespace {

constexpr int gap = 8; // pixels

} // namespace

frmOptions::frmOptions(const WindowDress &dress, const Preferences &preferences, const ComposeFont &font,
                       Prompts &prompts, QWidget *owner)
    : TitledWindow(dress, {u"frmOptions", u"options"}, owner),
      m_dress(dress),
      m_preferences(preferences),
      m_font(font),
      m_prompts(prompts),
      skfOptions(makeControl<SkinFrame>(*this, u"skfOptions")),
      smcType{makeButton(*this, u"smcType_0", tr("Options"), tr("&Options")),
              makeButton(*this, u"smcType_1", tr("Colors"), tr("&Colors"))},
      m_pages{new GeneralPage(*this), new ColoursPage(*this, prompts)},
      smdIgnore(makeButton(*this, u"smdIgnore", tr("Accept/Ignore"), tr("&Accept/Ignore"))),
      smdOk(makeButton(*this, u"smdOk", tr("Ok"), tr("&Ok"))),
      smdCancel(makeButton(*this, u"smdCancel", tr("Cancel"), tr("&Cancel")))
{
    setWindowTitle(tr("Chat Options"));
    setDefaultButton(smdOk);
    connectControls();
    frmOptions::SetupFormSkin();
    for (OptionsPage *page : m_pages) {
        page->fill(preferences.options);
    }
    showPage(0);
    m_pages[0]->setFocus();
    if (owner != nullptr) {
        clsMyApp::CentreOwner(*owner, *this);
    }
}

void frmOptions::connectControls()
{
    for (std::size_t i = 0; i < smcType.size(); ++i) {
        connect(smcType[i], &QAbstractButton::clicked, this, [this, i] { showPage(i); });
    }
    connect(smdIgnore, &QAbstractButton::clicked, this, &frmOptions::showLists);
    connect(smdOk, &QAbstractButton::clicked, this, &frmOptions::accept);
    connect(smdCancel, &QAbstractButton::clicked, this, &QWidget::close);

    auto *nextPage = new QShortcut(this);
    nextPage->setKeys(
        {QKeySequence(Qt::CTRL | Qt::Key_Tab), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab)});
    connect(nextPage, &QShortcut::activated, this, [this] {
        const std::size_t other = smcType[0]->Down() ? 1 : 0;
        showPage(other);
        m_pages[other]->setFocus();
    });
}

void frmOptions::SetupFormSkin()
{
    startTitledSkin();
    skin().OptionsForm(OptionsItem::LoadSelectButton);
    for (SkinButton *tab : smcType) {
        dressSelectButton(*tab, skin());
        sizeUndressed(*tab);
    }
    skin().OptionsForm(OptionsItem::ReleaseSelectButton);
    dressFrame(*skfOptions, skin());
    for (OptionsPage *page : m_pages) {
        page->dress(skin(), palette());
    }
    for (SkinButton *button : {smdIgnore, smdOk, smdCancel}) {
        dressFittingButton(*button, skin());
    }
    setFixedSize(sizeAround(clientSize()));
}

/// What the larger of the pages needs; the row of buttons may be wider.
QSize frmOptions::clientSize() const
{
    const QSize page = m_pages[0]->sizeHint().expandedTo(m_pages[1]->sizeHint());
    const auto border = [&](FrameMeasure measure) { return skfOptions->ClientArea(measure); };
    const int framed = page.width() + border(FrameMeasure::LeftWidth) + border(FrameMeasure::RightWidth);
    const int buttons = smdIgnore->width() + smdOk->width() + smdCancel->width() + 4 * gap;
    const int height = smcType[0]->height() + border(FrameMeasure::TopHeight) + page.height() +
                       border(FrameMeasure::BottomHeight) + smdOk->height();
    return {qMax(framed, buttons) + 2 * gap, height + 4 * gap};
}

void frmOptions::layOut()
{
    const QRect area = clientArea().adjusted(gap, gap, -gap, -gap);
    smcType[0]->move(area.topLeft());
    smcType[1]->move(smcType[0]->geometry().right() + 1 + gap, area.top());

    const int row = area.bottom() + 1 - smdOk->height();
    smdIgnore->move(area.left(), row);
    smdCancel->move(area.right() + 1 - smdCancel->width(), row);
    smdOk->move(smdCancel->x() - gap - smdOk->width(), row);

    const auto border = [&](FrameMeasure measure) { return skfOptions->ClientArea(measure); };
    const QRect frame(QPoint(area.left(), smcType[0]->geometry().bottom() + 1 + gap),
                      QPoint(area.right(), row - gap - 1));
    const QRect page = frame.adjusted(border(FrameMeasure::LeftWidth), border(FrameMeasure::TopHeight),
                                      -border(FrameMeasure::RightWidth), -border(FrameMeasure::BottomHeight));
    for (OptionsPage *each : m_pages) {
        each->setGeometry(page);
    }
    skfOptions->Wrap(*m_pages[0]);
}

void frmOptions::showPage(std::size_t chosen)
{
    for (std::size_t i = 0; i < m_pages.size(); ++i) {
        smcType[i]->setLatched(i == chosen);
        m_pages[i]->setVisible(i == chosen);
    }
}

/// What is changed there has been changed, whatever becomes of this dialog.
void frmOptions::showLists()
{
    if (auto *shown = findChild<frmIgnore *>()) {
        shown->raise();
        return;
    }
    const QPointer<frmOptions> self(this);
    const QPointer lists(new frmIgnore(m_dress, m_preferences.lists, m_preferences.saved, m_prompts, this));
    connect(lists, &TitledWindow::helpRequested, this, &TitledWindow::helpRequested);
    lists->ShowList(u'I');
    delete lists;
    if (self != nullptr) {
        showPage(0);
    }
}

void frmOptions::accept()
{
    for (const OptionsPage *page : m_pages) {
        page->writeTo(m_preferences.options);
    }
    m_preferences.saved.SaveOptions(m_font);
    Q_EMIT optionsChanged();
    close();
}

/// The dialog above it goes with it.
void frmOptions::closeEvent(QCloseEvent *event)
{
    if (auto *lists = findChild<frmIgnore *>()) {
        lists->close();
    }
    TitledWindow::closeEvent(event);
}
