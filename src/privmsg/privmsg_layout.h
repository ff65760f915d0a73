#pragma once

#include <QRect>

class clsSkinResourceNew;
struct PrivateControls;

/// Gives every control of a private window below its title strip the skin's values.
void dressPrivate(const PrivateControls &controls, clsSkinResourceNew &skin);

/// Places the controls within the client area, in pixels of the window. The box that is written in keeps its
/// height as long as that leaves some to the conversation.
void ArrangeControls(const PrivateControls &controls, const QRect &client);

/// Where the splitter goes when it is let go of there: at least 100 pixels from the window's top and bottom,
/// and so that a line of the box below it is seen.
[[nodiscard]] int splitAt(const PrivateControls &controls, int top, int windowHeight);
/// Puts the splitter's top there; the boxes above and below it get the heights that this leaves.
void moveSplitter(const PrivateControls &controls, int split);

/// The sizes of the client area that the controls want and need, in pixels, with their fonts of now.
[[nodiscard]] QSize designedClient(const PrivateControls &controls);
[[nodiscard]] QSize smallestClient(const PrivateControls &controls);
