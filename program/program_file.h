#pragma once

// The program's own file: a document as XML, the modes and the channel table, nothing of the view or the
// current mode.
//
//   <modelist>
//     <mode name='Sunset' description='Evening'>      description only if there is one
//       <channel>                                     five, by position
//         <step hour='20' minute='30' value='75' jump='1'/>   whole percents; jump only if set
//       </channel>
//       ...
//     </mode>
//     <channel_info>
//       <channel_info name='Red' description='' r='255' g='0' b='0'/>   five; texts only if there are any
//       ...
//     </channel_info>
//   </modelist>
//
// Reading is forgiving: what is absent is 0 or empty, what is unknown is passed over, and numbers stay as the
// file has them, in range or not, in order or not. User interface thread, since ovk::string lives on one.

#include <cstdint>
#include <filesystem>
#include <string>

#include "OvkLib/src/ovk_xml.h"
#include "program/program.h"

namespace TCBase::Program {

/// Writes the file and logs "Saved program {1}" or "Error saving program {1}". True if it was written; a file
/// that was there before is not lost otherwise, and `reason`, which may be null, gets why. `mark`, which may
/// be null, gets the ContentMark() of what was written.
bool SaveProgram(const ModeListView& document, const std::filesystem::path& path,
                 std::string* reason = nullptr, std::uint64_t* mark = nullptr);

/// Reads a file into a document with default values (NewProgram); the channel table is kept if the file has
/// none. False, and "Error loading program {1}" and the reason in the log, if the file cannot be read, is not
/// well-formed or holds no usable mode; the document is then in pieces and to be thrown away. `mark`, which
/// may be null, gets the ContentMark() of what was read.
bool LoadProgram(const std::filesystem::path& path, ModeListView& document, std::uint64_t* mark = nullptr);

/// Fills an empty element with the document.
void BuildProgramXml(const ModeListView& document, ovk::xml::element& root);

/// Reads a parsed and trimmed file, whatever the root is called; the rest is as in LoadProgram, without the
/// log.
bool ReadProgramXml(const ovk::xml::element& root, ModeListView& document);

// The pieces. Each Read function answers false, and leaves its result alone, if the element has another tag.

/// A jump is the number 1 and nothing else.
bool ReadStep(const ovk::xml::element& element, Step& step);
void WriteStep(const Step& step, ovk::xml::element& element);
/// False, too, if there are other than five children; their tags do not matter. The steps get fresh ids.
bool ReadMode(const ovk::xml::element& element, Mode& mode);
/// The three colours are not masked: a number above 255 spills into its neighbours' bits.
bool ReadChannelInfo(const ovk::xml::element& element, ChannelInfo& info);
void WriteChannelInfo(const ChannelInfo& info, ovk::xml::element& element);

}  // namespace TCBase::Program
