// A folder of a test's own, removed with all that is in it.
#ifndef ZEMVA_TESTS_SUPPORT_TEMP_FOLDER_H
#define ZEMVA_TESTS_SUPPORT_TEMP_FOLDER_H

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace zemva::test {

class TempFolder {
 public:
  TempFolder() {
    static std::atomic<int> made = 0;
    const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
    folder_ = std::filesystem::temp_directory_path() /
              ("zemva_test_" + std::to_string(now) + "_" + std::to_string(++made));
    std::filesystem::create_directories(folder_);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder() {
    std::error_code error;
    std::filesystem::remove_all(folder_, error);
  }

  const std::filesystem::path& Path() const { return folder_; }
  std::string File(std::string_view name) const { return (folder_ / name).string(); }

 private:
  std::filesystem::path folder_;
};

inline std::string ReadBytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

inline void WriteBytes(const std::string& path, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

}  // namespace zemva::test

#endif  // ZEMVA_TESTS_SUPPORT_TEMP_FOLDER_H
