#pragma once

#include <optional>

class QString;
class QWidget;
class SettingsFile;

/// Where the private window of each person stood, in the settings file: in twips, 15 to a pixel at 100 %.

/// What the settings file says, in pixels; nothing where it has no such value, 0 for text that is no number.
struct PrivatePlacement
{
    std::optional<int> left;
    std::optional<int> top;
    std::optional<int> width;
    std::optional<int> height;
};

[[nodiscard]] PrivatePlacement readPlacement(const SettingsFile &settings, const QString &peerId);

/// Takes the placement on, brought onto a screen; where it says nothing the window stays as it is.
void takePlacement(QWidget &window, const PrivatePlacement &placement);

/// Writes the height of the conversation and, while the window is neither minimised nor maximised, where it
/// stands. An id that no messenger would give away is not written.
void writePlacement(SettingsFile &settings, const QString &peerId, const QWidget &window, int convHeight);
