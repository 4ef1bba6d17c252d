#pragma once

#include <xcb/xcb.h>

/// Keys as X calls them; a letter, a digit or a blank is called by its character.
namespace reelhouse::tests::Key {

inline constexpr xcb_keysym_t tab = 0xff09;
inline constexpr xcb_keysym_t enter = 0xff0d;
inline constexpr xcb_keysym_t escape = 0xff1b;
inline constexpr xcb_keysym_t home = 0xff50;
inline constexpr xcb_keysym_t up = 0xff52;
inline constexpr xcb_keysym_t down = 0xff54;
inline constexpr xcb_keysym_t f1 = 0xffbe;
inline constexpr xcb_keysym_t f2 = 0xffbf;
inline constexpr xcb_keysym_t f10 = 0xffc7;
inline constexpr xcb_keysym_t shift = 0xffe1;
inline constexpr xcb_keysym_t control = 0xffe3;
inline constexpr xcb_keysym_t alt = 0xffe9;
inline constexpr xcb_keysym_t del = 0xffff;

} // namespace reelhouse::tests::Key
