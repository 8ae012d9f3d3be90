#include "session/LineEditor.h"

#include "session/InterruptGuard.h"
#include "text/Table.h"
#include "text/TextDisplay.h"

#include <histedit.h>

#include <algorithm>
#include <cerrno>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

namespace vgdt {
namespace {

namespace fs = std::filesystem;

constexpr int kMaxHistory = 1000;

char* promptText(EditLine*) {
  static char text[] = "vgdt> ";
  return text;
}

/// Where the history is kept; empty if the environment gives no place.
fs::path historyFile() {
  const auto variable = [](const char* name) -> fs::path {
    const char* const value = std::getenv(name);
    return value ? value : "";
  };
  fs::path folder = variable("XDG_STATE_HOME");
  if (!folder.is_absolute()) {
    const fs::path home = variable("HOME");
    if (!home.is_absolute()) return {};
    folder = home / ".local" / "state";
  }
  return folder / "vgdt" / "history";
}

/// A folder that only its owner can read. That it cannot be made costs no more than the history.
void createFolder(const fs::path& folder) {
  std::error_code ignored;
  if (fs::create_directories(folder, ignored))
    fs::permissions(folder, fs::perms::owner_all, ignored);
}

void printWords(const std::vector<std::string>& words) {
  constexpr std::size_t kMaxWords = 100;
  constexpr std::size_t kTerminalWidth = 80;
  const std::size_t count = std::min(words.size(), kMaxWords);
  std::size_t width = 0;
  for (std::size_t i = 0; i < count; ++i)
    width = std::max(width, displayWidth(words[i]) + 2);
  const std::size_t columns = std::max<std::size_t>(kTerminalWidth / width, 1);
  for (std::size_t i = 0; i < count; ++i)
    std::printf("%s%s", i % columns == 0 ? "\n" : "", padded(onOneLine(words[i]), width).c_str());
  if (count < words.size()) std::printf("\n... %zu words", words.size());
  std::printf("\n");
}

}  // namespace

struct LineEditor::Editor {
  struct End {
    void operator()(EditLine* ended) const { el_end(ended); }
    void operator()(History* ended) const { history_end(ended); }
  };

  explicit Editor(Complete how) : complete(std::move(how)), file(historyFile()) {
    // Without it, only ASCII could be edited.
    if (!std::setlocale(LC_CTYPE, "") || MB_CUR_MAX == 1) std::setlocale(LC_CTYPE, "C.UTF-8");
    history.reset(history_init());
    line.reset(el_init("vgdt", stdin, stdout, stderr));
    if (!history || !line) throw std::bad_alloc();
    HistEvent event;
    ::history(history.get(), &event, H_SETSIZE, kMaxHistory);
    ::history(history.get(), &event, H_SETUNIQUE, 1);
    if (!file.empty()) ::history(history.get(), &event, H_LOAD, file.c_str());
    EditLine* const edited = line.get();
    el_set(edited, EL_PROMPT, promptText);
    el_set(edited, EL_HIST, ::history, history.get());
    el_set(edited, EL_EDITOR, "emacs");
    el_set(edited, EL_SIGNAL, 1);  // the terminal's size, and suspending
    el_set(edited, EL_CLIENTDATA, this);
    el_set(edited, EL_ADDFN, "vgdt-complete", "Completes a word", completeWord);
    el_set(edited, EL_BIND, "^I", "vgdt-complete", nullptr);
    el_set(edited, EL_BIND, "^R", "em-inc-search-prev", nullptr);
    el_source(edited, nullptr);
  }

  void save() {
    if (file.empty()) return;
    createFolder(file.parent_path());
    HistEvent event;
    ::history(history.get(), &event, H_SAVE, file.c_str());
  }

  void remember(const char* entered) {
    HistEvent event;
    ::history(history.get(), &event, H_ENTER, entered);
  }

  unsigned char completeHere() const {
    const LineInfo* const info = el_line(line.get());
    const std::string_view before(info->buffer,
                                  static_cast<std::size_t>(info->cursor - info->buffer));
    const Completion found = complete(before);
    const std::size_t typed = before.size() - found.begin;
    if (found.words.empty()) return CC_REFRESH_BEEP;
    std::string rest(commonBeginning(found.words).substr(typed));
    const bool isWordOfCommand = found.begin == 0 || before[found.begin - 1] == ' ';
    if (found.words.size() == 1 && isWordOfCommand) rest += ' ';
    if (rest.empty()) {
      printWords(found.words);
      return CC_REDISPLAY;
    }
    return el_insertstr(line.get(), rest.c_str()) == 0 ? CC_REFRESH : CC_REFRESH_BEEP;
  }

  static unsigned char completeWord(EditLine* edited, int) {
    Editor* self = nullptr;
    el_get(edited, EL_CLIENTDATA, &self);
    try {
      return self->completeHere();
    } catch (...) {
      return CC_REFRESH_BEEP;  // no exception may pass through C
    }
  }

  Complete complete;
  fs::path file;
  std::unique_ptr<History, End> history;
  std::unique_ptr<EditLine, End> line;
};

LineEditor::LineEditor(Complete complete)
    : editor_(std::make_unique<Editor>(std::move(complete))) {}

LineEditor::~LineEditor() {
  editor_->save();
}

std::optional<std::string> LineEditor::next() {
  const InterruptGuard givesUpLine([](int) {});
  int count = 0;
  errno = 0;
  const char* const entered = el_gets(editor_->line.get(), &count);
  if (!entered || count <= 0) {
    std::printf("\n");
    std::fflush(stdout);
    if (errno != EINTR) return std::nullopt;
    el_reset(editor_->line.get());
    return "";
  }
  std::string line(entered, static_cast<std::size_t>(count));
  if (line.ends_with('\n')) line.pop_back();
  if (line.find_first_not_of(" \t") != line.npos) editor_->remember(line.c_str());
  return line;
}

}  // namespace vgdt
