// What documents take in memory, the hostile ones too. A program of its own, since it counts the allocations
// of its whole process.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>

#include "OvkLib/src/ovk_xml.h"
#include "OvkLib/src/ovk_xml_reader.h"
#include "tests/OvkLib/hostile_xml.h"
#include "tests/support/heap_count.h"
#include "tests/support/run_length.h"

namespace {

using hostile_xml::Document;
using hostile_xml::Shape;
using ovk::xml::reading;

// As long as files may be.
constexpr std::size_t kLong = std::size_t{16} * 1024 * 1024;
// What a document takes at the most of its own size, in attributes of three bytes and a name.
constexpr std::size_t kMostTimes = 64;

class HostileXml : public testing::TestWithParam<Shape> {};

// The tree, what a text is carried over from when it grows, and what the parser itself holds.
TEST_P(HostileXml, TakesNoMoreThanATreeMayAndALittle) {
  const std::string document = Document(GetParam(), Rounds(kLong / 16, kLong));
  ovk::xml::element root;
  const std::int64_t before = heap_count::bytes;
  heap_count::mostBytes = before;
  const reading read = ovk::xml::read(root, document);
  if (read == reading::well_formed) ovk::xml::trim(root);
  const std::size_t most = std::min(kMostTimes * document.size(), ovk::xml::kMostTreeBytes / 4 * 5);
  EXPECT_LE(heap_count::mostBytes - before, static_cast<std::int64_t>(most));
  if (read != reading::well_formed) {
    EXPECT_LE(heap_count::bytes - before, 0);
  }
}

INSTANTIATE_TEST_SUITE_P(Shapes, HostileXml, testing::ValuesIn(hostile_xml::kShapes), [](const auto& test) {
  std::string name(test.param.name);
  std::erase(name, ' ');
  return name;
});

TEST(XmlMemory, AProgramAsItIsSavedTakesEightTimesItsRoomAtTheMost) {
  const std::string document = Document(hostile_xml::kShapes.back(), kLong);
  ovk::xml::element root;
  const std::int64_t before = heap_count::bytes;
  heap_count::mostBytes = before;
  ASSERT_EQ(ovk::xml::read(root, document), reading::well_formed);
  EXPECT_LE(heap_count::mostBytes - before, static_cast<std::int64_t>(8 * document.size()));
}

TEST(XmlMemory, ATreeThatIsTooLargeIsToldFromADocumentThatIsMalformed) {
  const std::string many = Document(hostile_xml::kShapes.front(), kLong);
  ovk::xml::element root("kept");
  EXPECT_EQ(ovk::xml::read(root, many), reading::too_large);
  EXPECT_EQ(ovk::xml::read(root, "<a></b>"), reading::malformed);
  EXPECT_EQ(ovk::xml::read(root, "<a>"), reading::malformed);
  EXPECT_EQ(root.name, "kept");
  EXPECT_EQ(ovk::xml::read(root, "<a/>"), reading::well_formed);
  EXPECT_EQ(root.name, "a");
}

}  // namespace
