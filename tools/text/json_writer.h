// Results for other programs, in JSON (ECMA-404).
#ifndef ZEMVA_TOOLS_TEXT_JSON_WRITER_H
#define ZEMVA_TOOLS_TEXT_JSON_WRITER_H

#include <cstdio>
#include <string>
#include <string_view>

namespace zemva::tools {

// Writes values one after the other: each goes behind its key in an object, or to the end of a
// list. What is begun is to be ended.
class JsonWriter {
 public:
  explicit JsonWriter(std::FILE* stream) : stream_(stream) {}
  JsonWriter(const JsonWriter&) = delete;
  JsonWriter& operator=(const JsonWriter&) = delete;
  ~JsonWriter() { std::fputc('\n', stream_); }

  void BeginObject() { Begin('{'); }
  void EndObject() { End('}'); }
  void BeginList() { Begin('['); }
  void EndList() { End(']'); }
  void Key(std::string_view key);

  // In UTF-8.
  void Text(std::string_view text);
  // In the shortest form that gives it back; a missing value is null.
  void Number(float value);
  void Integer(long long value);
  void Null();

  void Text(std::string_view key, std::string_view text) { Key(key), Text(text); }
  void Integer(std::string_view key, long long value) { Key(key), Integer(value); }

 private:
  void Begin(char bracket);
  void End(char bracket);
  void Separate();
  void Write(std::string_view text) { std::fwrite(text.data(), 1, text.size(), stream_); }
  std::string Quoted(std::string_view text) const;

  std::FILE* stream_;
  bool is_first_ = true;  // in what was begun last
  bool is_behind_key_ = false;
};

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_TEXT_JSON_WRITER_H
