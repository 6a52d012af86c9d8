// Bytes as operations on a handful of strings, each done the same on plain standard strings. The strings copy
// one another, so that they share blocks, and take parts of themselves; after each operation all of them hold
// what the plain ones hold, and what is told of capacities and shared blocks is so.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "OvkLib/src/ovk_pool.h"
#include "OvkLib/src/ovk_string.h"
#include "fuzz/input.h"

namespace {

using fuzz::Input;
using fuzz::Require;

constexpr std::size_t kStrings = 4;
// Longer ones only take time.
constexpr std::size_t kLongest = 2000;

template <class Char>
class Strings {
 public:
  explicit Strings(Input& input) : input_(input) {}

  void Run() {
    while (!input_.IsEmpty()) {
      Operate(input_.Take<std::uint8_t>());
      for (std::size_t i = 0; i < kStrings; ++i) Compare(strings_[i], plain_[i]);
    }
  }

 private:
  using String = ovk::basic_string<Char>;
  using Plain = std::basic_string<Char>;

  static void Compare(const String& string, const Plain& plain) {
    Require(string.length() == static_cast<std::int32_t>(plain.size()) && string.view() == plain);
    Require(string.empty() == plain.empty() && string.c_str()[plain.size()] == Char());
    Require(string == plain && string == string && string.capacity() >= string.length());
    Require(string.capacity() >= String::inline_capacity);
  }

  Char AnyChar() {
    return static_cast<Char>(input_.Take<std::uint8_t>() % 4 == 0 ? 0
                                                                  : 'a' + input_.Take<std::uint8_t>() % 3);
  }
  // A number of characters: mostly a small one, now and then a negative or a large one.
  std::int32_t Number() {
    const auto byte = input_.Take<std::uint8_t>();
    return byte % 16 == 15 ? input_.Take<std::int32_t>() : byte % 64;
  }
  Plain AnyText() {
    Plain text;
    for (std::size_t left = input_.Take<std::uint8_t>() % 48; left > 0; --left) text += AnyChar();
    return text;
  }
  // A part of a text, which may be the one that is to be changed.
  struct Part {
    const Char* begin;
    std::int32_t count;
    Plain text;
  };
  Part AnyPart(std::size_t of) {
    const String& from = strings_[of];
    const auto begin = std::clamp(Number(), 0, from.length());
    const auto count = std::clamp(Number(), 0, from.length() - begin);
    return {from.c_str() + begin, count,
            plain_[of].substr(static_cast<std::size_t>(begin), static_cast<std::size_t>(count))};
  }
  static std::size_t Clipped(std::int32_t count) { return static_cast<std::size_t>(std::max(count, 0)); }

  void Operate(std::uint8_t what) {
    const std::size_t at = what % kStrings;
    const std::size_t other = what / 4 % kStrings;
    String& string = strings_[at];
    Plain& plain = plain_[at];
    if (plain.size() > kLongest) {
      string.clear();
      plain.clear();
    }
    switch (what / 16) {
      case 0:
        return Copy(string, plain, other);
      case 1:
        return Move(string, plain, other);
      case 2:
        string.swap(strings_[other]);
        return plain.swap(plain_[other]);
      case 3:
        return AssignText(string, plain);
      case 4:
        return AssignPart(string, plain, other);
      case 5:
        return AppendPart(string, plain, other);
      case 6:
        return AppendText(string, plain);
      case 7:
        return Replace(string, plain, other);
      case 8:
        return Erase(string, plain);
      case 9:
        return Resize(string, plain);
      case 10:
        return Reserve(string);
      case 11:
        return PushBack(string, plain);
      case 12:
        return InsertZeros(string, plain);
      case 13:
        return Find(string, plain, other);
      case 14:
        return WriteInPlace(string, plain, other);
      default:
        string.clear();
        return plain.clear();
    }
  }

  // A copy of a longer text shares its block, unless somebody writes to it.
  void Copy(String& string, Plain& plain, std::size_t other) {
    const String& from = strings_[other];
    string = from;
    plain = plain_[other];
    const bool isInline = from.capacity() == String::inline_capacity;
    if (&string != &from && isInline) Require(string.c_str() != from.c_str());
    const String third(string);
    Require(third == plain && !(third == plain + Char('x')));
  }
  void Move(String& string, Plain& plain, std::size_t other) {
    if (&string == &strings_[other]) return;
    string = std::move(strings_[other]);
    plain = plain_[other];
    plain_[other].clear();
  }
  void AssignText(String& string, Plain& plain) {
    plain = AnyText();
    string.assign(plain.data(), static_cast<std::int32_t>(plain.size()));
    // Pooled strings live on beside the others, and outlive their pool.
    if (plain.size() % 2 == 0) string = String(plain, *pool_);
    if (plain.size() % 16 == 7) pool_ = std::make_unique<ovk::pool>();
  }
  void AssignPart(String& string, Plain& plain, std::size_t other) {
    const Part part = AnyPart(other);
    string.assign(part.begin, part.count);
    plain = part.text;
  }
  void AppendPart(String& string, Plain& plain, std::size_t other) {
    const Part part = AnyPart(other);
    string.append(part.begin, part.count);
    plain += part.text;
  }
  void AppendText(String& string, Plain& plain) {
    const Plain text = AnyText();
    if (text.size() % 2 == 0) {
      string.append(text, *pool_);
    } else {
      string.append(text);
    }
    plain += text;
    string.append(text.data(), -1);
  }
  void Replace(String& string, Plain& plain, std::size_t other) {
    const std::int32_t position = Number();
    const std::int32_t count = Number();
    const Part part = AnyPart(other);
    string.replace(position, count, part.begin, part.count);
    const std::size_t begin = std::min(Clipped(position), plain.size());
    plain.replace(begin, std::min(Clipped(count), plain.size() - begin), part.text);
  }
  void Erase(String& string, Plain& plain) {
    const std::int32_t position = Number();
    const std::int32_t count = Number();
    string.erase(position, count);
    plain.erase(std::min(Clipped(position), plain.size()), Clipped(count));
  }
  void Resize(String& string, Plain& plain) {
    const auto count = static_cast<std::int32_t>(Number() % static_cast<std::int32_t>(kLongest));
    const Char fill = AnyChar();
    string.resize(count, fill);
    plain.resize(Clipped(count), fill);
  }
  void Reserve(String& string) {
    const auto count = static_cast<std::int32_t>(Number() % static_cast<std::int32_t>(kLongest));
    const std::int32_t before = string.capacity();
    string.reserve(count);
    Require(string.capacity() == (count > before ? std::max(count, before * 3 / 2) : before));
  }
  void PushBack(String& string, Plain& plain) {
    const Char c = AnyChar();
    string.push_back(c);
    plain += c;
  }
  void InsertZeros(String& string, Plain& plain) {
    const std::int32_t count = Number() % 100;
    string.insert_zeros(count);
    plain.insert(std::min<std::size_t>(plain.size(), 1), Clipped(count), Char('0'));
  }
  // The pattern ends at its first terminator.
  void Find(const String& string, const Plain& plain, std::size_t other) {
    const std::int32_t from = Number();
    const Plain pattern(plain_[other].c_str());
    const std::size_t found = plain.find(pattern, std::min(Clipped(from), plain.size()));
    const std::int32_t expected = found == Plain::npos ? String::not_found : static_cast<std::int32_t>(found);
    Require(string.find(strings_[other].c_str(), from) == expected);
  }
  // While somebody may write, a copy has a text of its own.
  void WriteInPlace(String& string, Plain& plain, std::size_t other) {
    Char* const text = string.writable();
    if (&string != &strings_[other]) {
      strings_[other] = string;
      plain_[other] = plain;
      Require(strings_[other].c_str() != string.c_str());
    }
    if (plain.empty()) return;
    const std::size_t place = Clipped(Number()) % plain.size();
    text[place] = plain[place] = AnyChar();
  }

  Input& input_;
  std::unique_ptr<ovk::pool> pool_ = std::make_unique<ovk::pool>();
  std::array<String, kStrings> strings_;
  std::array<Plain, kStrings> plain_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  if (input.Take<std::uint8_t>() % 2 == 0) {
    Strings<char>(input).Run();
  } else {
    Strings<char16_t>(input).Run();
  }
  return 0;
}
