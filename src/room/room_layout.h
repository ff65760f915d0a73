#pragma once

#include <QSize>

class clsSkin;
struct RoomControls;
class clsSkinResourceNew;

/// The least size of the room window, in pixels.
inline constexpr QSize roomMinimumSize(500, 400);

/// Gives every control of the room window the skin's values and starts the system buttons in the face.
void dressRoom(RoomControls &controls, clsSkin &face, clsSkinResourceNew &skin);

/// Places the controls for a window of this size, within the borders of its face.
void layOutRoom(RoomControls &controls, const clsSkin &face, QSize window, bool showEmotions);
