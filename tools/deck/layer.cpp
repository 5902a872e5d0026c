// SPDX-License-Identifier: MIT
#include "layer.h"

namespace deck
{

void DrawLayers(Canvas& canvas, std::span<const Layer> layers, const Dress& dress)
{
    for (const Layer& layer : layers) {
        if (layer.fill != Ink::None) {
            canvas.Path(layer.path).Fill(Resolve(layer.fill, dress));
        }
        if (layer.line != Ink::None) {
            canvas.Path(layer.path).Stroke(Resolve(layer.line, dress), layer.width);
        }
    }
}

} // namespace deck
