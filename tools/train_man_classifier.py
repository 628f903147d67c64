#!/usr/bin/env python3
"""Trains the classifier of men in diagrams and writes its numbers into src/diagram/man_weights.h.

Usage: train_man_classifier.py SAMPLES HELD_OUT OUTPUT.h [MINUTES] [CHECKPOINT]

SAMPLES and HELD_OUT come from tarnwick_diagram_samples (tests/shell/diagram_samples.cpp). HELD_OUT has sets of men
that SAMPLES has not: they are only measured. With a CHECKPOINT the training goes on where the last one ended.
Needs python3-torch and python3-numpy of Debian; docs of the layers: src/diagram/man_classifier.h.

The numbers in the repository were made so:
  sets    our own men; DejaVu Sans and DejaVu Sans Bold; the sets of Debian's pychess 1.0.3 that look like chessmen
          (alfonso alpha cburnett chessicons chessmonk freestaunton kilfiger kosal leipzig magnetic maya merida
          merida_new pirat regular, and the fonts adventurer cases condal harlequin kingdom leipzig lucena magnetic
          mark maroquin maya medieval merida motif usual, whose characters are kqrbnplwtvmo); of xboard 4.9.1; the
          chess signs of Symbola 2.60, Noto Sans Symbols2 and Unifont 15.0. Never FreeSerif, with which the tests
          measure how men are read that nobody trained with.
  stages  12 minutes on half a core without DejaVu (seed 5001, 3,500 diagrams), which read the never seen DejaVu with
          96.4 % of the fields right: its bishops look like the pawns of other sets. Then 6 minutes with all of the
          above from the checkpoint (seed 5002, 2,800 diagrams).
"""

import pathlib
import sys
import time

import numpy
import torch
from torch import nn
from torch.nn import functional

SIDE = 32
HIGHEST_RATE = 3e-3
SAMPLE_BYTES = 3 + SIDE * SIDE  # set, man, kind of dark fields, grey values


class Network(nn.Module):
    """The layers of src/diagram/man_classifier.cpp, in its order."""

    def __init__(self):
        super().__init__()
        self.lines = nn.Conv2d(1, 8, 5, stride=2, padding=2)
        self.corners = nn.Conv2d(8, 16, 3, stride=2, padding=1)
        self.parts = nn.Conv2d(16, 24, 3, padding=1)
        self.shapes = nn.Conv2d(24, 32, 3)
        self.men = nn.Linear(32 * 2 * 2, 13)

    def forward(self, grey):
        x = functional.relu(self.lines(grey))                             # 16 * 16
        x = functional.relu(self.corners(x))                              # 8 * 8
        x = functional.max_pool2d(functional.relu(self.parts(x)), 2)      # 4 * 4
        x = functional.relu(self.shapes(x))                               # 2 * 2
        x = x.permute(0, 2, 3, 1).flatten(1)                              # row, column, channel
        x = functional.dropout(x, 0.1, self.training)
        return self.men(x)


def read_samples(path):
    data = numpy.fromfile(path, dtype=numpy.uint8)
    return torch.from_numpy(data[:len(data) // SAMPLE_BYTES * SAMPLE_BYTES].reshape(-1, SAMPLE_BYTES))


def grey_of(samples):
    return samples[:, 3:].reshape(-1, 1, SIDE, SIDE).float() / 255


def varied(grey):
    """Left and right changed; lines made thicker or thinner; another contrast."""
    if torch.rand(()) < 0.5:
        grey = grey.flip(3)
    choice = torch.rand(())
    if choice < 0.12:
        grey = functional.max_pool2d(grey, 3, stride=1, padding=1) * 0.5 + grey * 0.5
    elif choice < 0.24:
        grey = -functional.max_pool2d(-grey, 3, stride=1, padding=1) * 0.5 + grey * 0.5
    contrast = 1 + 0.2 * (torch.rand(len(grey), 1, 1, 1) - 0.5)
    return ((grey - 0.5) * contrast + 0.5 + 0.1 * (torch.rand(len(grey), 1, 1, 1) - 0.5)).clamp(0, 1)


def measure(network, samples, name):
    """Prints the part of right fields by set and kind of dark fields, and how sure the wrong ones were."""
    network.eval()
    with torch.no_grad():
        chances = torch.cat([network(grey_of(part)).softmax(1) for part in samples.split(4096)])
    sure, found = chances.max(1)
    right = found == samples[:, 1]
    print(f"{name}: {right.float().mean() * 100:.2f} % right; under 0.9 sure: "
          f"{(sure < 0.9).float().mean() * 100:.2f} %; wrong and sure: "
          f"{((sure >= 0.9) & ~right).float().mean() * 100:.3f} %")
    for chosen in samples[:, 0].unique():
        of_set = samples[:, 0] == chosen
        rates = [right[of_set & (samples[:, 2] == kind)].float().mean() * 100 for kind in range(3)]
        print(f"  set {chosen:2}: plain {rates[0]:.2f} grey {rates[1]:.2f} hatched {rates[2]:.2f}")
    network.train()


def train(network, samples, minutes):
    size = 128
    optimizer = torch.optim.AdamW(network.parameters(), lr=HIGHEST_RATE, weight_decay=1e-3)
    begin = time.monotonic()
    step = 0
    while True:
        done = (time.monotonic() - begin) / (60 * minutes)
        if done >= 1:
            break
        # The rate falls with the time, which ends each stage as a whole training would end.
        for group in optimizer.param_groups:
            group["lr"] = HIGHEST_RATE * max(0.01, 1 - done)
        part = samples[torch.randint(len(samples), (size,))]
        loss = functional.cross_entropy(network(varied(grey_of(part))), part[:, 1].long())
        optimizer.zero_grad()
        loss.backward()
        optimizer.step()
        step += 1
        if step % 500 == 0:
            print(f"step {step}, loss {loss.item():.4f}", flush=True)


def rounded(values):
    """Whole numbers from -127 to 127 and what one of them stands for."""
    unit = values.abs().max().item() / 127
    return torch.round(values / unit).to(torch.int32).flatten().tolist(), unit


def table(name, numbers):
    lines, line = [], "   "
    for number in numbers:
        text = f" {number},"
        if len(line) + len(text) > 100:
            lines.append(line)
            line = "   "
        line += text
    lines.append(line)
    return f"inline constexpr std::int8_t {name}[{len(numbers)}] = {{\n" + "\n".join(lines) + "\n};\n"


def layer_text(name, layer):
    # For the inner loop over the outputs of a layer: row, column, input, output.
    order = (2, 3, 1, 0) if layer.weight.dim() == 4 else (1, 0)
    numbers, unit = rounded(layer.weight.detach().permute(order))
    biases = ", ".join(f"{bias:.5f}F" for bias in layer.bias.detach().tolist())
    return (f"inline constexpr float {name}Unit = {unit:.8f}F;\n"
            f"inline constexpr float {name}Biases[{len(layer.bias)}] = {{{biases}}};\n"
            + table(f"{name}Weights", numbers))


def write_header(network, path):
    names = {"lines": "Line", "corners": "Corner", "parts": "Part", "shapes": "Shape", "men": "Man"}
    layers = "\n".join(layer_text(name, getattr(network, attribute)) for attribute, name in names.items())
    pathlib.Path(path).write_text(
        "#pragma once\n"
        "// The numbers of man_classifier.cpp. Made by tools/train_man_classifier.py, which tells from what; never\n"
        "// changed by hand. A weight is its whole number times the unit of its layer, by row, column, input, output.\n"
        "\n#include <cstdint>\n\nnamespace tarnwick {\n\n// clang-format off\n"
        + layers + "// clang-format on\n\n}  // namespace tarnwick\n", encoding="utf-8")


def main(arguments):
    samples, held_out = read_samples(arguments[0]), read_samples(arguments[1])
    minutes = float(arguments[3]) if len(arguments) > 3 else 10
    checkpoint = pathlib.Path(arguments[4]) if len(arguments) > 4 else None
    torch.manual_seed(1)
    network = Network()
    if checkpoint and checkpoint.exists():
        network.load_state_dict(torch.load(checkpoint))
    print(f"{len(samples)} samples, {sum(value.numel() for value in network.parameters())} numbers")
    train(network, samples, minutes)
    measure(network, samples[:40000], "trained with")
    measure(network, held_out, "held out")
    if checkpoint:
        torch.save(network.state_dict(), checkpoint)
    write_header(network, arguments[2])


if __name__ == "__main__":
    main(sys.argv[1:])
