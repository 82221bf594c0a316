// Writes what the fuzzers begin with:
//   fuzz_material dictionary FILE         the words of the engine's tables
//   fuzz_material corpus TARGET FOLDER    the inputs of a target
//   fuzz_material replay TARGET           runs a target on its inputs and on its regressions
#include <array>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <set>
#include <string>

#include "data/directives.h"
#include "fuzz/fuzz_targets.h"
#include "language/target_types.h"
#include "language/values.h"
#include "pages/messages.h"
#include "pages/shown_markup.h"
#include "script/command_table.h"
#include "text/text.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;

const std::string kSource = BRINDLEMOOR_SOURCE_DIR;

std::set<std::string, std::less<>> Words() {
  std::set<std::string, std::less<>> words = {"HP",       "HPMAX",          "MANA",  "PLAYER",
                                              "BONUS",    "BONUSACTION:1",  "$|$",   "STARTSINPLAY",
                                              "AI",       "#ANY#",          "#ALL#", "COLLECTION",
                                              "OVERRIDE", "#GAMERULES",     "@@ ",   "\"",
                                              "CARD",     "MENUACTION:",    "GAME:", "HELP:",
                                              "MENU:",    "INPLAYERDECK:1", "P6\n",  "<!--",
                                              "-->",      "<![CDATA[",      "]]>",   "onload=",
                                              "style=",   "src=http:",      "&lt;",  "&#60;"};
  for (const auto& family : CommandFamilies()) {
    for (const Command& row : family) words.emplace(Joined(row.Word, ":"));
  }
  for (const ValueKeyword& row : ValueKeywords()) words.emplace(row.Word);
  for (const MessageMark& row : MessageMarks()) words.emplace(row.Mark);
  for (const TriggerRow& row : kTriggerRows) words.emplace(row.Word);
  for (const TargetTypeRow& row : kTargetTypeRows) words.emplace(row.Word);
  for (const DirectiveRow& row : kDirectiveRows) words.emplace(Joined("\n", row.Word, ", "));
  for (const LocationRow& row : kLocationRows) words.emplace(Joined(row.Word, ", "));
  for (const ShownTag& row : ShownTags()) words.emplace(Joined("<", row.Name, " "));
  for (const std::string_view name : kSilentTags) words.emplace(Joined("</", name, ">"));
  for (const ShownAttribute& row : ShownAttributes()) words.emplace(Joined(row.Name, "="));
  return words;
}

std::string DictionaryLine(std::string_view word) {
  std::string line = "\"";
  for (const char character : word) {
    if (character == '"' || character == '\\') line += '\\';
    line += character == '\n' ? std::string("\\x0A") : std::string(1, character);
  }
  return line + "\"\n";
}

bool WriteFile(const fs::path& path, std::string_view bytes) {
  std::ofstream stream(path, std::ios::binary);
  stream << bytes;
  return stream.good();
}

int WriteDictionary(const std::string& file) {
  std::string text;
  for (const std::string& word : Words()) text += DictionaryLine(word);
  return WriteFile(file, text) ? 0 : 1;
}

int WriteCorpus(const FuzzTarget& target, const std::string& folder) {
  fs::create_directories(folder);
  int number = 0;
  for (const std::string& input : target.Corpus(kSource + "/games")) {
    if (!WriteFile(fs::path(folder) / Joined("shipped-", ++number), input)) return 1;
  }
  return 0;
}

int Replay(const FuzzTarget& target) {
  int count = 0;
  for (const std::string& input : target.Corpus(kSource + "/games")) {
    target.Run(input);
    ++count;
  }
  const fs::path regressions = fs::path(kSource) / "fuzz" / "regressions" / target.Name;
  std::error_code none;
  for (const auto& entry : fs::directory_iterator(regressions, none)) {
    std::cout << "regression " << entry.path().filename().string() << std::endl;
    std::ifstream stream(entry.path(), std::ios::binary);
    target.Run(std::string(std::istreambuf_iterator<char>(stream), {}));
    ++count;
  }
  std::cout << target.Name << ": " << count << " inputs\n";
  return count > 0 ? 0 : 1;
}

int Usage() {
  std::cerr << "dictionary FILE | corpus TARGET FOLDER | replay TARGET\n";
  return 2;
}

int Main(int count, char** arguments) {
  const std::string_view word = count > 1 ? arguments[1] : "";
  if (word == "dictionary" && count == 3) return WriteDictionary(arguments[2]);
  const FuzzTarget* target = count > 2 ? FindFuzzTarget(arguments[2]) : nullptr;
  if (target == nullptr) return Usage();
  if (word == "corpus" && count == 4) return WriteCorpus(*target, arguments[3]);
  if (word == "replay" && count == 3) return Replay(*target);
  return Usage();
}

}  // namespace
}  // namespace brindlemoor

int main(int count, char** arguments) { return brindlemoor::Main(count, arguments); }
