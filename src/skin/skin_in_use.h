#pragma once

#include "skin/clsSkinResourceNew.h"

#include <QSet>

#include <functional>
#include <memory>

class QString;
class clsMyApp;

/// Who draws the windows' borders: the skin, or the desktop for those who tile their windows.
enum class WindowFrame
{
    Skin,
    Native
};

/// The one skin that every window wears. A change happens as a whole or not at all: the new skin takes the
/// old one's place when it has been read to its end.
class SkinInUse
{
public:
    /// Gets one line for everything that is wrong with a skin, for people to read.
    using Report = std::function<void(const QString &line)>;

    /// The application helper names the skin file; without a report the lines go to standard error.
    explicit SkinInUse(const clsMyApp &myApp, WindowFrame frame = WindowFrame::Skin, Report report = {});

    /// Reads the skin that the application helper names. False, with the reason reported, when it cannot be
    /// used or its file has gone: the one before stays. Before there was one, everything is empty.
    bool change();

    /// Which pictures the next change reads; all of them to begin with.
    void setFinePictures(FinePictures fine) { m_fine = fine; }
    [[nodiscard]] FinePictures finePictures() const { return m_fine; }

    /// As long as no change happens; windows ask again afterwards.
    [[nodiscard]] clsSkinResourceNew &description() const { return *m_description; }
    [[nodiscard]] WindowFrame frame() const { return m_frame; }
    [[nodiscard]] const clsMyApp &myApp() const { return m_myApp; }

    void report(const QString &line) const { m_report(line); }
    /// What several windows find wrong with one skin is reported by the first of them.
    void reportOnce(const QString &line);

private:
    const clsMyApp &m_myApp;
    WindowFrame m_frame;
    Report m_report;
    FinePictures m_fine = FinePictures::Read;
    std::unique_ptr<clsSkinResourceNew> m_description;
    QSet<QString> m_reported; ///< about this skin
};
