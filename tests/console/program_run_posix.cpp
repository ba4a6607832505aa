#include "program_run.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarrow {

int RunProcess(const std::vector<std::string>& command, const std::filesystem::path& directory,
               const std::filesystem::path& input, const std::filesystem::path& out,
               const std::filesystem::path& err) {
  std::vector<char*> words;
  for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
  words.push_back(nullptr);
  pid_t child = fork();
  if (child == 0) {
    bool ready = dup2(open(input.c_str(), O_RDONLY), 0) == 0 &&
                 dup2(open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), 1) == 1 &&
                 dup2(open(err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), 2) == 2 &&
                 chdir(directory.c_str()) == 0;
    if (ready) execv(words[0], words.data());
    _exit(126);
  }
  int status = 0;
  if (child < 0 || waitpid(child, &status, 0) != child) return -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

}  // namespace tarrow
