// The reader's scanner and parser over a character source. Blocks are
// parsed with an explicit stack of open lists, so nesting depth is bounded
// only by memory.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "env/char_layer.h"
#include "env/handle.h"

namespace qnutil::env {

template <class Source>
class Parser {
 public:
  explicit Parser(Source& source) : in_(source) {}

  // Appends the sections read to `top`, each once it is complete: 0, or
  // ENV_SYNTAX at the first error (earlier sections stay).
  int parse(ElementList& top) {
    int c;
    while ((c = in_.get()) != '[' && c != kEndOfInput) {
    }
    if (c == '[') in_.push_back(c);
    Token token = next_token();
    for (;;) {
      if (token == Token::end) return ENV_OK;
      if (token != Token::section) {
        report("Section waited", __LINE__);
        return ENV_SYNTAX;
      }
      read_text(skip_blanks(in_.get()), ']', text_);
      std::unique_ptr<Element, void (*)(Element*)> section(new_block(text_), free_element);
      token = next_token();
      if (!parse_entries(make_block(section.get()), token)) return ENV_SYNTAX;
      top.append(section.release());
    }
  }

 private:
  enum class Token { equal, section, close, end, name };
  static constexpr std::size_t kChunk = 99;

  static bool is_blank(int c) { return c == ' ' || c == '\t'; }

  int skip_blanks(int c) {
    while (is_blank(c)) c = in_.get();
    return c;
  }

  // Collects the text from `first` up to the terminator (consumed) or the
  // end of input. Trailing blanks are cut from the last chunk of 99
  // collected characters only. NUL bytes cannot be part of a text and are
  // dropped. Returns what ended the text.
  int read_text(int c, int terminator, std::string& out) {
    out.clear();
    if (c == terminator) return c;
    std::size_t chunk_start = 0, in_chunk = 0;
    auto count = [&](std::size_t kept) {
      // Every byte counted here was kept, so a boundary crossed lies
      // within the bytes just appended.
      in_chunk += kept;
      if (in_chunk >= kChunk) {
        in_chunk %= kChunk;
        chunk_start = out.size() - in_chunk;
      }
    };
    while (c != terminator && c != kEndOfInput) {
      if (c != 0) {
        out.push_back(static_cast<char>(c));
        count(1);
      } else if (++in_chunk == kChunk) {
        chunk_start = out.size();
        in_chunk = 0;
      }
      count(in_.take_plain(out, terminator));
      c = in_.get();
    }
    std::size_t end = out.size();
    while (end > chunk_start && is_blank(static_cast<unsigned char>(out[end - 1]))) --end;
    out.resize(end);
    return c;
  }

  Token next_token() {
    int c;
    do c = in_.get();
    while (is_blank(c) || c == '\n');
    switch (c) {
      case '=': return Token::equal;
      case '[': return Token::section;
      case '}': return Token::close;
      case kEndOfInput: return Token::end;
      default:
        if (read_text(c, '=', text_) == '=') in_.push_back('=');
        return Token::name;
    }
  }

  // Entries of a section and, through the stack, of the blocks inside it.
  bool parse_entries(ElementList& section_list, Token& token) {
    open_.assign(1, &section_list);
    for (;;) {
      if (token == Token::name) {
        if (next_token() != Token::equal) {
          report("Equal sign waited", __LINE__);
          return false;
        }
        const int c = skip_blanks(in_.get());
        if (c == '{') {
          Element* block = new_block(text_);
          open_.back()->append(block);
          open_.push_back(&make_block(block));
        } else {
          read_text(c, '\n', value_);
          open_.back()->append(new_data(text_, value_));
        }
        token = next_token();
        continue;
      }
      if (open_.size() == 1) return true;
      if (token != Token::close) {
        report("Cbracesymbol waited", __LINE__);
        return false;
      }
      open_.pop_back();
      token = next_token();
    }
  }

  CharLayer<Source> in_;
  std::string text_, value_;
  std::vector<ElementList*> open_;
};

}  // namespace qnutil::env
