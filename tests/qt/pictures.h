#pragma once

// Pictures that are compared, with golden ones or with each other.

#include <QImage>

#include <string>
#include <string_view>
#include <vector>

namespace pictures {

/// How far two pictures may be apart: rasterizers differ at the edges of shapes.
struct Tolerance {
  int difference = 24;   // of a colour's parts, that counts
  double share = 0.002;  // of the pixels, that may have one
};

/// Fails the test if the pictures differ by more; `name` is in the message.
void ExpectAlike(const QImage& actual, const QImage& expected, const std::string& name,
                 const Tolerance& tolerance = {});

/// The same against tests/qt/golden/NAME.png. A failure leaves the picture as NAME.png in the folder for
/// temporary files. With LUMARINE_REWRITE_GOLDEN in the environment it is written and not compared.
void ExpectGolden(const QImage& actual, const std::string& name);

/// A picture file in memory.
QImage FromBytes(std::string_view bytes);
/// An SVG in memory as rsvg-convert draws it, a pixel for a pixel.
QImage FromSvg(std::string_view svg);

/// What a program says of an SVG in memory; fails the test if the program does.
std::string OutputOver(std::string_view svg, const std::string& program, std::vector<std::string> options);

}  // namespace pictures
