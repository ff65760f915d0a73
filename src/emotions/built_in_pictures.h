#pragma once

class ImageList;

/// Puts a picture for each built-in emoticon into the list, under "e" and its name: 20 by 20 pixels, drawn
/// for screens with twice as many. They serve until a skin brings its own.
void addBuiltInEmoticons(ImageList &list);
