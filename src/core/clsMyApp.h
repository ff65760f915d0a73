#pragma once

#include <QPoint>
#include <QRect>
#include <QString>

/// Where the program lives, whether a file exists, which skin is in use, and the place of a dialog over its
/// owner. One object for the whole run.
class clsMyApp
{
public:
    /// The application folder; see applicationFolder().
    explicit clsMyApp(const QString &folder);

    /// The application folder, ending with exactly one separator.
    [[nodiscard]] QString Path() const { return m_path; }

    /// True when the path, as localPath() has it, is a file that can be opened for reading. False for a
    /// folder and for an empty path.
    [[nodiscard]] static bool IsFile(const QString &path);

    /// A path from the messenger as this system opens it: both "/" and "\\" part folders.
    [[nodiscard]] static QString localPath(const QString &path);

    /// The base name of the skin file, without its last extension; empty when the file name has no ".".
    [[nodiscard]] QString SkinName() const;

    /// Moves the window so that it is centred on its owner; its size stays.
    template <typename Owner, typename Window>
    static void CentreOwner(const Owner &owner, Window &window)
    {
        window.move(centredOn(owner.frameGeometry(), window.frameGeometry().size()));
    }

    /// The top left corner of a window of this size that is centred on the owner; halves drop the remainder.
    [[nodiscard]] static QPoint centredOn(const QRect &owner, const QSize &window);

    /// The full path of the current skin file, as the messenger sent it; empty until start-up sets it.
    QString Skin;

private:
    QString m_path;
};
