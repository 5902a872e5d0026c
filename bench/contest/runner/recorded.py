# SPDX-License-Identifier: MIT
"""Renderers that Debian has no packages of: speeds recorded on another machine, as multiples of a contestant there.

They ran once beside the others (Blend2D 0.21.2, compiled; Skia of Chrome m157 through a canvas), on the same kinds of
scenes. Their rows are that multiple of the contestant's speed here. Both draw a tilted card as two affine halves.
"""

_BLEND2D = {
    "blit71": ("cairo", 1.78),
    "blit240": ("cairo", 1.60),
    "upright71": ("cairo", 1.14),
    "upright240": ("cairo", 1.06),
    "upright240hd": ("cairo", 1.07),
    "upright240-52": ("cairo", 0.99),
    "rotated71": ("qt-hard", 0.69),
    "rotated240": ("qt-hard", 0.48),
    "rotated240hd": ("qt-hard", 0.47),
    "rotated240-52": ("qt-hard", 0.69),
    "minified": ("qt-hard", 0.79),
    "tilted71": ("llvmpipe", 1.28),
    "tilted240": ("llvmpipe", 1.33),
    "tilted240hd": ("llvmpipe", 1.36),
    "tilted240-52": ("llvmpipe", 1.89),
}
_SKIA = {
    "blit71": ("cairo", 0.28),
    "blit240": ("cairo", 0.94),
    "upright71": ("cairo", 0.41),
    "upright240": ("cairo", 0.48),
    "upright240hd": ("cairo", 0.44),
    "upright240-52": ("cairo", 0.42),
    "rotated71": ("qt-hard", 0.52),
    "rotated240": ("qt-hard", 0.54),
    "rotated240hd": ("qt-hard", 0.47),
    "rotated240-52": ("qt-hard", 0.66),
    "minified": ("qt-hard", 0.51),
    "tilted71": ("llvmpipe", 0.31),
    "tilted240": ("llvmpipe", 0.70),
    "tilted240hd": ("llvmpipe", 0.62),
    "tilted240-52": ("llvmpipe", 0.98),
}

MULTIPLES = {"blend2d (recorded)": _BLEND2D, "skia (recorded)": _SKIA}

# Skia's upright cards had hard edges at half pixels.
CORRECT_KINDS = {
    "blend2d (recorded)": {"blit", "upright", "rotated", "minified"},
    "skia (recorded)": {"blit", "rotated", "minified"},
}
