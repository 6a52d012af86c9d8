#pragma once

// What others are not to read, and its striking out of texts and bytes.

#include <string>
#include <string_view>
#include <vector>

#include "doctor/computer_facts.h"

namespace doctor {

class Secrets {
 public:
  /// The names of a user and a computer.
  explicit Secrets(const platform::Identity& identity);

  /// A password, or the name of a wireless network: struck out wherever it stands. One of less than four
  /// bytes is left to those who know where it stands, since it may be a part of any word.
  void Add(std::string_view secret);

  /// `text` with a word in the place of each secret: "~" for the home folder, "(user)", "(computer)",
  /// "(struck out)". Folders of other users below /home and \Users have their names struck out, too. Names
  /// are found in capitals and without; ones of less than four bytes only as whole words.
  std::string Strike(std::string_view text) const;

  /// Sets in `struck`, of the same length, which bytes belong to a secret.
  void Mark(std::string_view bytes, std::vector<bool>& struck) const;

 private:
  struct Needle {
    std::string text;
    std::string_view replacement;
    bool wholeWord = false;
  };

  void AddName(const std::string& name, std::string_view replacement);
  void AddNeedle(Needle needle);
  const Needle* FindAt(std::string_view text, std::size_t at) const;

  std::vector<Needle> needles_;  // the longest first
};

}  // namespace doctor
