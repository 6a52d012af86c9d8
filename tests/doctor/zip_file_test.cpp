// The ZIP file, read back by an independent reader of its parts.

#include "doctor/zip_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zlib.h>

#include <cstdint>
#include <random>

namespace {

using doctor::BundleFile;

// Reads numbers and texts one after the other.
class Reader {
 public:
  explicit Reader(std::string_view bytes) : bytes_(bytes) {}
  std::uint32_t Number(std::size_t size) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < size; ++i)
      number |= static_cast<std::uint32_t>(static_cast<std::uint8_t>(bytes_.at(i))) << 8 * i;
    bytes_.remove_prefix(size);
    return number;
  }
  std::string Text(std::size_t size) {
    const std::string text(bytes_.substr(0, size));
    bytes_.remove_prefix(size);
    return text;
  }

 private:
  std::string_view bytes_;
};

std::string Inflated(const std::string& packed, std::size_t size) {
  z_stream stream{};
  EXPECT_EQ(inflateInit2(&stream, -15), Z_OK);
  std::string text(size + 1, '\0');
  std::string input = packed;
  stream.next_in = reinterpret_cast<Bytef*>(input.data());
  stream.avail_in = static_cast<uInt>(input.size());
  stream.next_out = reinterpret_cast<Bytef*>(text.data());
  stream.avail_out = static_cast<uInt>(text.size());
  EXPECT_EQ(inflate(&stream, Z_FINISH), Z_STREAM_END);
  text.resize(stream.total_out);
  inflateEnd(&stream);
  return text;
}

// By the directory at its end, as tools read it.
std::vector<BundleFile> Unzip(const std::string& zip) {
  constexpr std::size_t kEndSize = 22;
  Reader end(std::string_view(zip).substr(zip.size() - kEndSize));
  EXPECT_EQ(end.Number(4), 0x06054B50U);
  EXPECT_EQ(end.Number(4), 0U);
  const std::uint32_t count = end.Number(2);
  EXPECT_EQ(end.Number(2), count);
  const std::uint32_t size = end.Number(4);
  const std::uint32_t offset = end.Number(4);
  EXPECT_EQ(offset + size + kEndSize, zip.size());
  Reader directory(std::string_view(zip).substr(offset, size));
  std::vector<BundleFile> files;
  for (std::uint32_t i = 0; i < count; ++i) {
    EXPECT_EQ(directory.Number(4), 0x02014B50U);
    EXPECT_EQ(directory.Number(2) >> 8, 3U) << "of Unix, for the rights";
    EXPECT_EQ(directory.Number(2), 20U);
    EXPECT_EQ(directory.Number(2), 0U);
    EXPECT_EQ(directory.Number(2), 8U);
    EXPECT_EQ(directory.Number(2), 0U);
    EXPECT_EQ(directory.Number(2), 0x21U) << "1980-01-01";
    const std::uint32_t sum = directory.Number(4);
    const std::uint32_t packedSize = directory.Number(4);
    const std::uint32_t plainSize = directory.Number(4);
    const std::uint32_t nameSize = directory.Number(2);
    EXPECT_EQ(directory.Number(2) + directory.Number(2) + directory.Number(2), 0U);
    EXPECT_EQ(directory.Number(2), 1U);
    EXPECT_EQ(directory.Number(4) >> 16, 0100644U);
    Reader local(std::string_view(zip).substr(directory.Number(4)));
    const std::string name = directory.Text(nameSize);
    EXPECT_EQ(local.Number(4), 0x04034B50U);
    local.Text(10);
    EXPECT_EQ(local.Number(4), sum);
    EXPECT_EQ(local.Number(4), packedSize);
    EXPECT_EQ(local.Number(4), plainSize);
    EXPECT_EQ(local.Number(2), nameSize);
    EXPECT_EQ(local.Number(2), 0U);
    EXPECT_EQ(local.Text(nameSize), name);
    const std::string content = Inflated(local.Text(packedSize), plainSize);
    EXPECT_EQ(content.size(), plainSize);
    EXPECT_EQ(crc32(0, reinterpret_cast<const Bytef*>(content.data()), plainSize), sum);
    files.push_back({name, content});
  }
  return files;
}

TEST(ZipFile, HoldsWhatWasPutIn) {
  std::mt19937 random(1);
  std::string noise(100'000, '\0');
  for (char& byte : noise) byte = static_cast<char>(random());
  const std::vector<BundleFile> files = {
      {"report.txt", "good\n"}, {"empty", ""}, {"noise", noise}, {"long", std::string(1'000'000, 'a')}};
  const std::vector<BundleFile> read = Unzip(doctor::ZipOf(files));
  ASSERT_EQ(read.size(), files.size());
  for (std::size_t i = 0; i < files.size(); ++i) {
    EXPECT_EQ(read[i].name, files[i].name);
    EXPECT_EQ(read[i].content == files[i].content, true) << files[i].name;
  }
}

TEST(ZipFile, OfNothingIsEmpty) {
  EXPECT_THAT(Unzip(doctor::ZipOf({})), testing::IsEmpty());
}

TEST(ZipFile, IsTheSameForTheSameFiles) {
  const std::vector<BundleFile> files = {{"report.txt", "good\n"}};
  EXPECT_EQ(doctor::ZipOf(files), doctor::ZipOf(files));
}

}  // namespace
