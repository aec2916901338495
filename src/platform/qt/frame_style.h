#pragma once

class QStyle;

namespace bracken {

// The desktop's style, with frames that can be seen: it draws them in a somewhat darker shade of
// the window's colour, which on a black window is black, and around a check box too faint anywhere.
// The caller owns it. Once there is an application object.
QStyle* makeFrameStyle();

}  // namespace bracken
