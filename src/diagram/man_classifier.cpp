// Lines of the print -> corners and ends of lines -> parts of men -> shapes -> men. All but the last layer look
// at a small neighbourhood, everywhere with the same weights. Values below zero become zero after each layer, and
// about half of them do, so the inner loops skip zeros. A field costs about 370,000 multiplications.

#include "diagram/man_classifier.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>
#include <vector>

#include "diagram/man_weights.h"

namespace tarnwick {
namespace {

/// A square picture with several values at each place: [(row * side + column) * depth + value].
struct TMap {
    int side;
    int depth;
    std::vector<float> values;
};

/// Looks at size by size places of a map, every stride places; outside of the map lies zero.
struct TLayer {
    TLayer(std::span<const std::int8_t> wholeWeights, float unit,
           std::span<const float> layerBiases, int layerSize, int layerStride, int layerPadding)
        : biases(layerBiases), size(layerSize), stride(layerStride), padding(layerPadding) {
        weights.reserve(wholeWeights.size());
        for (const std::int8_t weight : wholeWeights) {
            weights.push_back(unit * static_cast<float>(weight));
        }
    }

    std::vector<float> weights;  ///< By row, column, input, output.
    std::span<const float> biases;
    int size;
    int stride;
    int padding;
};

/// sums[output] += sum of inputs * weights. Raw pointers: the inner loop runs millions of times.
void AddProducts(const float* inputs, int inputCount, const float* weights, float* sums,
                 int outputCount) {
    for (int input = 0; input < inputCount; ++input, weights += outputCount) {
        const float value = inputs[input];
        if (value == 0) {
            continue;
        }
        for (int output = 0; output < outputCount; ++output) {
            sums[output] += value * weights[output];
        }
    }
}

/// The layer's answer at each place, with values below zero made zero.
TMap Applied(const TLayer& layer, const TMap& map) {
    const int side = (map.side + 2 * layer.padding - layer.size) / layer.stride + 1;
    const int depth = static_cast<int>(layer.biases.size());
    TMap result{.side = side, .depth = depth, .values = {}};
    result.values.reserve(static_cast<std::size_t>(side * side * depth));
    std::vector<float> sums;
    for (int place = 0; place < side * side; ++place) {
        const int top = place / side * layer.stride - layer.padding;
        const int left = place % side * layer.stride - layer.padding;
        const int first = std::max(0, -left);
        const int last = std::min(layer.size, map.side - left);
        sums.assign(layer.biases.begin(), layer.biases.end());
        for (int row = std::max(0, -top); row < std::min(layer.size, map.side - top); ++row) {
            // The places of one row lie side by side, and so do their weights.
            AddProducts(map.values.data() + ((top + row) * map.side + left + first) * map.depth,
                        (last - first) * map.depth,
                        layer.weights.data() + (row * layer.size + first) * map.depth * depth,
                        sums.data(), depth);
        }
        for (const float sum : sums) {
            result.values.push_back(std::max(0.0F, sum));
        }
    }
    return result;
}

/// The largest of each two by two places.
TMap Halved(const TMap& map) {
    TMap half{.side = map.side / 2, .depth = map.depth, .values = {}};
    half.values.reserve(static_cast<std::size_t>(half.side * half.side * half.depth));
    const int below = map.side * map.depth;
    for (int row = 0; row < half.side; ++row) {
        for (int column = 0; column < half.side; ++column) {
            const float* const place =
                map.values.data() + (2 * row * map.side + 2 * column) * map.depth;
            for (int i = 0; i < map.depth; ++i) {
                half.values.push_back(std::max({place[i], place[i + map.depth], place[i + below],
                                                place[i + below + map.depth]}));
            }
        }
    }
    return half;
}

/// Sums of evidence to chances.
TManChances Chances(const std::vector<float>& sums) {
    TManChances chances{};
    const float largest = *std::ranges::max_element(sums);
    float total = 0;
    for (std::size_t i = 0; i < chances.size(); ++i) {
        chances[i] = std::exp(sums[i] - largest);
        total += chances[i];
    }
    for (float& chance : chances) {
        chance /= total;
    }
    return chances;
}

}  // namespace

TManChances ClassifyMan(const TFieldImage& field) {
    static const TLayer lines(LineWeights, LineUnit, LineBiases, 5, 2, 2);
    static const TLayer corners(CornerWeights, CornerUnit, CornerBiases, 3, 2, 1);
    static const TLayer parts(PartWeights, PartUnit, PartBiases, 3, 1, 1);
    static const TLayer shapes(ShapeWeights, ShapeUnit, ShapeBiases, 3, 1, 0);
    static const TLayer men(ManWeights, ManUnit, ManBiases, 2, 1, 0);
    const TMap grey{.side = FieldImageSide, .depth = 1, .values = {field.begin(), field.end()}};
    const TMap seen =
        Applied(shapes, Halved(Applied(parts, Applied(corners, Applied(lines, grey)))));
    std::vector<float> sums(std::begin(ManBiases), std::end(ManBiases));
    AddProducts(seen.values.data(), static_cast<int>(seen.values.size()), men.weights.data(),
                sums.data(), static_cast<int>(sums.size()));
    return Chances(sums);
}

}  // namespace tarnwick
