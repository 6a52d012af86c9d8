#include "tests/qt/pictures.h"

#include <gtest/gtest.h>

#include <QColor>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "platform/posix/ask_program.h"
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"

namespace {

bool Differ(QRgb a, QRgb b, int difference) {
  return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                   std::abs(qBlue(a) - qBlue(b))}) > difference;
}

QString PathText(const std::filesystem::path& path) {
  return QString::fromStdString(path.string());
}

}  // namespace

void pictures::ExpectAlike(const QImage& actual, const QImage& expected, const std::string& name,
                           const Tolerance& tolerance) {
  ASSERT_EQ(actual.size(), expected.size()) << name;
  ASSERT_FALSE(actual.isNull()) << name;
  int count = 0;
  QPoint first;
  for (int y = 0; y < actual.height(); ++y) {
    for (int x = 0; x < actual.width(); ++x) {
      if (!Differ(actual.pixel(x, y), expected.pixel(x, y), tolerance.difference)) continue;
      if (count++ == 0) first = {x, y};
    }
  }
  EXPECT_LE(count, tolerance.share * actual.width() * actual.height())
      << name << " differs in " << count << " pixels, first at " << first.x() << ", " << first.y();
}

void pictures::ExpectGolden(const QImage& actual, const std::string& name) {
  const auto path = std::filesystem::path(LUMARINE_SOURCE_DIR) / "tests/qt/golden" / (name + ".png");
  if (std::getenv("LUMARINE_REWRITE_GOLDEN") != nullptr) {
    std::filesystem::create_directories(path.parent_path());
    ASSERT_TRUE(actual.convertToFormat(QImage::Format_RGB32).save(PathText(path), "PNG"));
    return;
  }
  const QImage expected(PathText(path));
  ASSERT_FALSE(expected.isNull()) << path << " is missing; set LUMARINE_REWRITE_GOLDEN to write it";
  ExpectAlike(actual, expected, name);
  if (!testing::Test::HasFailure()) return;
  const auto copy = std::filesystem::temp_directory_path() / (name + ".png");
  actual.save(PathText(copy), "PNG");
  ADD_FAILURE() << "what was drawn is left as " << copy;
}

QImage pictures::FromBytes(std::string_view bytes) {
  return QImage::fromData(reinterpret_cast<const uchar*>(bytes.data()), static_cast<int>(bytes.size()));
}

std::string pictures::OutputOver(std::string_view svg, const std::string& program,
                                 std::vector<std::string> options) {
  const TemporaryFolder folder;
  options.push_back(FileWith(folder / "a.svg", svg).string());
  const auto output = platform::AskProgram(program, options);
  EXPECT_TRUE(output.has_value()) << program;
  return output.value_or("");
}

QImage pictures::FromSvg(std::string_view svg) {
  return FromBytes(OutputOver(svg, "rsvg-convert", {}));
}
