#pragma once

namespace tavel {

// Window lengths are twips, 1/1440 inch: 15 make a pixel at scale 1, and Qt scales the rest.
constexpr int Pixels(int twips) { return twips / 15; }
constexpr int Twips(int pixels) { return pixels * 15; }

}  // namespace tavel
