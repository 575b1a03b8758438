// SPDX-License-Identifier: GPL-2.0-or-later
#include "tests/hosts/windows/source_texts.h"

#include <QRegularExpression>
#include <algorithm>
#include <iterator>
#include <optional>
#include <set>
#include <utility>

namespace tessarine::testing {
namespace {

enum class TokenKind { Literal, Character, Word, Sign };

struct Token {
  TokenKind kind;
  QString text;

  [[nodiscard]] bool Is(const char* sign) const { return kind == TokenKind::Sign && text == QLatin1String(sign); }
};

using Tokens = std::vector<Token>;

QString Unescaped(const QString& quoted) {
  QString text;
  const int last = quoted.lastIndexOf(quoted.at(quoted.indexOf(QRegularExpression(QStringLiteral("[\"']")))));
  for (int at = quoted.indexOf(QRegularExpression(QStringLiteral("[\"']"))) + 1; at < last; ++at) {
    if (quoted.at(at) != QLatin1Char('\\')) {
      text += quoted.at(at);
      continue;
    }
    const QChar escaped = quoted.at(++at);
    if (escaped == QLatin1Char('n')) text += QLatin1Char('\n');
    // The breaks of lines that the suite writes are plain ones in a window.
    else if (escaped != QLatin1Char('r'))
      text += escaped == QLatin1Char('t') ? QLatin1Char('\t') : escaped;
  }
  return text;
}

Tokens TokensOf(const QString& source) {
  static const QRegularExpression token(
      QStringLiteral(
          R"re((?<none>\s+|//[^\n]*|/\*(?s:.*?)\*/|^\s*#.*$)|(?<raw>R"(?<d>[^(]*)\((?<in>(?s:.*?))\)\k<d>"))re"
          R"re(|(?<literal>"(?:[^"\\\n]|\\.)*")|(?<character>'(?:[^'\\\n]|\\.)+')|(?<word>\w+))re"
          R"re(|::|->|\+=|\+\+|--|<<|>>|==|!=|<=|>=|&&|\|\||.)re"),
      QRegularExpression::MultilineOption);
  Tokens tokens;
  for (auto found = token.globalMatch(source); found.hasNext();) {
    const QRegularExpressionMatch match = found.next();
    const auto has = [&](const char* group) { return match.capturedLength(QLatin1String(group)) > 0; };
    if (has("none")) continue;
    const QString whole = match.captured();
    if (has("raw"))
      tokens.push_back({TokenKind::Literal, match.captured(QStringLiteral("in"))});
    else if (has("literal"))
      tokens.push_back({TokenKind::Literal, Unescaped(whole)});
    else if (has("character"))
      tokens.push_back({TokenKind::Character, Unescaped(whole)});
    else
      tokens.push_back({has("word") ? TokenKind::Word : TokenKind::Sign, whole});
  }
  return tokens;
}

/// Finds the texts among tokens.
class TextFinder {
 public:
  [[nodiscard]] std::vector<QString> Find(const Tokens& tokens) {
    Expressions(tokens.begin(), tokens.end());
    return std::move(texts_);
  }

 private:
  using At = Tokens::const_iterator;
  struct Part {
    At first, last;
    bool is_group = false;  // what stands between brackets
  };
  using Parts = std::vector<Part>;

  // What ends one text and begins another.
  static bool EndsText(const Token& token) {
    static const std::set<QString> signs{",",  ";",  "{",  "}", "?", ":", "=", "+=", "<<", "&&",
                                         "||", "==", "!=", "<", ">", "-", "*", "<=", ">=", "!"};
    static const std::set<QString> words{"return", "throw", "else", "case"};
    return (token.kind == TokenKind::Sign && signs.contains(token.text)) ||
           (token.kind == TokenKind::Word && words.contains(token.text));
  }

  static At BehindGroup(At open, At last) {
    int depth = 0;
    for (At at = open; at != last; ++at) {
      if (at->Is("(") || at->Is("[")) ++depth;
      if (at->Is(")") || at->Is("]")) --depth;
      if (depth == 0) return at;
    }
    return last;
  }

  void Expressions(At first, At last) {
    Parts parts;
    for (At at = first; at != last; ++at) {
      if (at->Is("(") || at->Is("[")) {
        const At close = BehindGroup(at, last);
        parts.push_back({std::next(at), close, true});
        if (close == last) break;
        at = close;
      } else if (EndsText(*at)) {
        Sum(std::exchange(parts, {}));
      } else {
        parts.push_back({at, std::next(at)});
      }
    }
    Sum(parts);
  }

  static bool AreLiterals(At first, At last) {
    return first != last && std::all_of(first, last, [](const Token& one) { return one.kind == TokenKind::Literal; });
  }

  static QString Joined(At first, At last) {
    QString text;
    for (At at = first; at != last; ++at) text += at->text;
    return text;
  }

  // A sum is one text. Brackets of its values hold others.
  void Sum(const Parts& parts) {
    QString text;
    bool has_literal = false;
    int places = 0;
    Parts groups;
    for (auto from = parts.begin(); from != parts.end();) {
      const auto plus = std::find_if(from, parts.end(), [](const Part& part) { return part.first->Is("+"); });
      const Parts summand(from, plus);
      if (const auto literal = LiteralOf(summand)) {
        text += *literal;
        has_literal = has_literal || summand.front().first->kind != TokenKind::Character;
      } else {
        text += QStringLiteral("%%1").arg(++places);
        std::copy_if(summand.begin(), summand.end(), std::back_inserter(groups),
                     [](const Part& part) { return part.is_group; });
        for (const Part& part : summand) {
          if (!part.is_group && part.first->kind == TokenKind::Literal) texts_.push_back(part.first->text);
        }
      }
      from = plus == parts.end() ? plus : std::next(plus);
    }
    if (has_literal) texts_.push_back(text);
    for (const Part& group : groups) Expressions(group.first, group.last);
  }

  // "text", or std::string("text").
  static std::optional<QString> LiteralOf(const Parts& summand) {
    static const std::set<QString> wrappers{"string", "string_view", "QString", "QStringLiteral", "QLatin1String"};
    if (summand.empty()) return std::nullopt;
    const Part& last = summand.back();
    if (last.is_group) {
      const bool is_wrapped = summand.size() > 1 && wrappers.contains(summand[summand.size() - 2].first->text);
      return is_wrapped && AreLiterals(last.first, last.last) ? std::optional(Joined(last.first, last.last))
                                                              : std::nullopt;
    }
    if (summand.size() == 1 && last.first->kind == TokenKind::Character) return last.first->text;
    return AreLiterals(summand.front().first, last.last) ? std::optional(Joined(summand.front().first, last.last))
                                                         : std::nullopt;
  }

  std::vector<QString> texts_;
};

}  // namespace

std::vector<QString> TextsOf(const QString& source) { return TextFinder().Find(TokensOf(source)); }

}  // namespace tessarine::testing
