#pragma once

#include <array>

class MessageEdit;
class QLabel;
class QWidget;
class RichEdit;
class SkinButton;
class SplitStrip;

/// The controls of a private window below its title strip, under their names. The window owns them.
struct PrivateControls
{
    explicit PrivateControls(QWidget &window);

    std::array<QLabel *, 2> lblDetailsC; ///< what the other two tell
    std::array<QLabel *, 2> lblDetails;  ///< the person's id and name; in full they are the accessible names
    SkinButton *smdInfo;
    RichEdit *rtfConv;
    SplitStrip *lblSplit;
    SplitStrip *picSplit; ///< shown while the splitter is dragged
    MessageEdit *txtMsg;
    SkinButton *smdSend;
    SkinButton *smdClose;
};
