#pragma once

#include "core/colours.h"
#include "skin/cDIBSection.h"

#include <QObject>
#include <QString>

class clsMyApp;

/// The icons' transparent colour where the skin names none.
inline constexpr ColourValue noIconMaskColour = 0xEFFFFFFF;

/// Reads the small icons of the skin and hands each one on as it is read: moods, statuses, menus, headings,
/// emoticons. Their names say what they are; those that the skin lacks are passed over.
class clsProgramIcons final : public QObject
{
    Q_OBJECT

public:
    /// The application helper names the skin file.
    explicit clsProgramIcons(const clsMyApp &myApp) : m_myApp(myApp) {}

    /// Does nothing where the skin file is not there; throws SkinError where it is not fit to be used.
    void LoadBitmaps();

Q_SIGNALS:
    /// Before any icon: the colour that is transparent in all of them, or noIconMaskColour.
    void MaskColour(ColourValue colour);
    void BitmapLoad(const SkinBitmap &bitmap, const QString &name);

private:
    const clsMyApp &m_myApp;
};
