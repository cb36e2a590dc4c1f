// The root objects of a tuning file.
#pragma once

inline constexpr char kCaptureRoot[] = "ebo_configs";
inline constexpr char kPlaybackRoot[] = "ebo_ao_configs";
inline constexpr char kGainRoot[] = "ebo_agc_configs";
