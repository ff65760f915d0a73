#pragma once

#include "platform/skin_values.h"
#include "skin/cDIBSection.h"

#include <QObject>
#include <QString>

class clsSkinResourceNew;

/// Hands on the small icons of the skin, one after the other: headings, moods, menus, statuses, emoticons.
/// Their names say what they are; those that the skin lacks are passed over.
class clsProgramIcons final : public QObject
{
    Q_OBJECT

public:
    explicit clsProgramIcons(const clsSkinResourceNew &skin) : m_skin(skin) {}

    /// Does nothing where no skin has been read.
    void LoadBitmaps();

Q_SIGNALS:
    /// Before any icon: the colour that is transparent in all of them, or noColour.
    void MaskColour(ColourValue colour);
    void BitmapLoad(const SkinBitmap &bitmap, const QString &name);

private:
    const clsSkinResourceNew &m_skin;
};
