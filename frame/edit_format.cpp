// The edit-descriptor formatter of the by-reference inner layer.
//
// Only the part of the Fortran notation that the library's messages use is
// understood: 'text' (and "text", nH), A, Aw, Iw, Iw.m, Ew.d, Ew.dEe, Fw.d,
// Gw.d, kP, nX, /, :, repetition n(...) and nI, nE, ..., with commas or blanks
// between items.  Output follows the usual rules of formatted output
// (ISO/IEC 1539, "data edit descriptors"): output stops at the first data
// descriptor that finds no value left, an exhausted format with values
// remaining starts a new record at the last top-level group, the scale
// factor stays in force to the end, and a field too narrow for its value is
// filled with asterisks.  Two choices are the library's own: an A field
// wider than its text is left-justified, and non-finite reals print as NaN
// and INF.
#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "frame/inner.hpp"

namespace zil {
namespace {

struct Item {
  enum class Kind { Text, A, I, E, F, G, Scale, Blank, Slash, Colon, Group };
  Kind kind = Kind::Text;
  int repeat = 1;
  int w = -1;  // field width, -1 when the descriptor has none
  int d = -1;  // digits after the point; the minimum digit count of Iw.m
  int e = -1;  // exponent digits of Ew.dEe
  std::string text;
  std::vector<Item> group;
};

bool is_data(const Item& it) {
  switch (it.kind) {
    case Item::Kind::A:
    case Item::Kind::I:
    case Item::Kind::E:
    case Item::Kind::F:
    case Item::Kind::G:
      return true;
    case Item::Kind::Group:
      return std::any_of(it.group.begin(), it.group.end(), is_data);
    default:
      return false;
  }
}

class Parser {
 public:
  explicit Parser(const char* format) : p_(format ? format : "") {}

  std::vector<Item> parse() {
    while (*p_ == ' ') ++p_;
    if (*p_ == '(') ++p_;  // a format without its outer parentheses is read as a list too
    return list();
  }

 private:
  // Digits at the cursor; false (and v untouched) when there are none.
  bool number(int& v) {
    if (!std::isdigit(static_cast<unsigned char>(*p_))) return false;
    long n = 0;
    while (std::isdigit(static_cast<unsigned char>(*p_))) {
      if (n < 100000) n = n * 10 + (*p_ - '0');
      ++p_;
    }
    v = static_cast<int>(n);
    return true;
  }

  Item quoted(char quote) {
    Item it;
    ++p_;
    while (*p_) {
      if (*p_ == quote) {
        if (p_[1] != quote) {
          ++p_;
          break;
        }
        ++p_;  // a doubled delimiter stands for one
      }
      it.text += *p_++;
    }
    return it;
  }

  void descriptor(Item& it) {
    number(it.w);
    if (*p_ == '.') {
      ++p_;
      it.d = 0;
      number(it.d);
    }
    if ((it.kind == Item::Kind::E || it.kind == Item::Kind::G) && (*p_ == 'E' || *p_ == 'e') &&
        std::isdigit(static_cast<unsigned char>(p_[1]))) {
      ++p_;
      number(it.e);
    }
  }

  std::vector<Item> list() {
    std::vector<Item> items;
    for (;;) {
      while (*p_ == ' ' || *p_ == ',') ++p_;
      char c = *p_;
      if (c == '\0') return items;
      if (c == ')') {
        ++p_;
        return items;
      }
      if (c == '\'' || c == '"') {
        items.push_back(quoted(c));
        continue;
      }
      if (c == ':') {
        ++p_;
        items.emplace_back().kind = Item::Kind::Colon;
        continue;
      }
      bool negative = false;
      if (c == '-' || c == '+') {
        negative = c == '-';
        ++p_;
      }
      int n = -1;
      bool counted = number(n);
      while (*p_ == ' ') ++p_;
      Item it;
      it.repeat = counted ? n : 1;
      switch (std::toupper(static_cast<unsigned char>(*p_))) {
        case 'P':
          it.kind = Item::Kind::Scale;
          it.repeat = 1;
          it.w = counted ? (negative ? -n : n) : 0;
          break;
        case 'X':
          it.kind = Item::Kind::Blank;
          break;
        case '/':
          it.kind = Item::Kind::Slash;
          break;
        case 'H': {  // nH: the next n characters as they stand
          ++p_;
          it.repeat = 1;
          int k = counted ? n : 0;
          while (k-- > 0 && *p_) it.text += *p_++;
          items.push_back(it);
          continue;
        }
        case '(':
          ++p_;
          it.kind = Item::Kind::Group;
          it.group = list();
          items.push_back(std::move(it));
          continue;
        case 'A':
          it.kind = Item::Kind::A;
          break;
        case 'I':
          it.kind = Item::Kind::I;
          break;
        case 'E':
          it.kind = Item::Kind::E;
          break;
        case 'F':
          it.kind = Item::Kind::F;
          break;
        case 'G':
          it.kind = Item::Kind::G;
          break;
        default:  // a descriptor outside the subset is passed over
          if (*p_) ++p_;
          continue;
      }
      ++p_;
      if (is_data(it)) descriptor(it);
      items.push_back(std::move(it));
    }
  }

  const char* p_;
};

std::string stars(int w) { return std::string(static_cast<std::size_t>(std::max(w, 1)), '*'); }

// Right-justifies s in a field of w (w <= 0: as it stands); asterisks when
// it does not fit.
std::string justify(const std::string& s, int w) {
  if (w <= 0) return s;
  if (static_cast<int>(s.size()) > w) return stars(w);
  return std::string(static_cast<std::size_t>(w) - s.size(), ' ') + s;
}

// The same, but a leading "0" before the point may be given up to make
// room, as the notation allows.
std::string justify_real(const std::string& sign, const std::string& body, int w) {
  std::string s = sign + body;
  if (w > 0 && static_cast<int>(s.size()) > w && body.size() > 1 && body[0] == '0' && body[1] == '.')
    s = sign + body.substr(1);
  return justify(s, w);
}

std::string non_finite(double x, int w) {
  std::string s = std::isnan(x) ? "NaN" : (x < 0 ? "-INF" : "INF");
  return justify(s, w);
}

std::string int_field(long v, int w, int m) {
  char digits[32];
  std::snprintf(digits, sizeof digits, "%lu",
                v < 0 ? 0UL - static_cast<unsigned long>(v) : static_cast<unsigned long>(v));
  std::string s = digits;
  if (m > static_cast<int>(s.size())) s.insert(0, static_cast<std::size_t>(m) - s.size(), '0');
  if (v < 0) s.insert(0, 1, '-');
  return justify(s, w);
}

// Exponent form under scale factor k: k > 0 puts k digits before the point
// and d-k+1 after; k <= 0 puts -k zeros after the point and d+k significant
// digits behind them.
std::string exp_field(double x, int w, int d, int e, int k) {
  if (!std::isfinite(x)) return non_finite(x, w);
  if (d < 0) d = 0;
  int sig = k > 0 ? d + 1 : d + k;
  if (sig <= 0 || (k > 0 && k >= d + 2)) return stars(w);
  double a = std::fabs(x);
  std::string digits(static_cast<std::size_t>(sig), '0');
  int exponent = 0;  // a = 0.D1D2... times 10 to this
  if (a != 0.0) {
    // printf rounds the binary value correctly to sig digits, which is the
    // rounding of the last digit that formatted output asks for.
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.*e", sig - 1, a);
    std::string mant(buf, std::strchr(buf, 'e'));
    mant.erase(std::remove(mant.begin(), mant.end(), '.'), mant.end());
    digits = mant;
    exponent = std::atoi(std::strchr(buf, 'e') + 1) + 1;
  }
  std::string body;
  if (k > 0) {
    body = digits.substr(0, static_cast<std::size_t>(k)) + "." + digits.substr(static_cast<std::size_t>(k));
  } else {
    body = "0." + std::string(static_cast<std::size_t>(-k), '0') + digits;
  }
  int shown = a != 0.0 ? exponent - k : 0;
  int mag = std::abs(shown);
  char ex[16];
  if (e > 0) {
    // Ew.dEe: the letter always, e digits, and asterisks when they do not
    // suffice (no double needs more than three).
    e = std::min(e, 9);
    int limit = 1;
    for (int i = 0; i < e; ++i) limit *= 10;
    if (mag >= limit) return stars(w);
    std::snprintf(ex, sizeof ex, "E%c%0*d", shown < 0 ? '-' : '+', e, mag);
  } else if (mag <= 99) {
    std::snprintf(ex, sizeof ex, "E%c%02d", shown < 0 ? '-' : '+', mag);
  } else if (mag <= 999) {
    // A three-digit exponent gives up its letter to keep the field's width.
    std::snprintf(ex, sizeof ex, "%c%03d", shown < 0 ? '-' : '+', mag);
  } else {
    return stars(w);
  }
  return justify_real(std::signbit(x) ? "-" : "", body + ex, w);
}

// Moves the decimal point of a plain decimal text ("123.456") by k places.
std::string shift_point(const std::string& s, int k) {
  std::size_t dot = s.find('.');
  std::string digits = s.substr(0, dot) + s.substr(dot + 1);
  long point = static_cast<long>(dot) + k;
  if (point <= 0) {
    digits.insert(0, static_cast<std::size_t>(1 - point), '0');
    point = 1;
  }
  std::string out = digits.substr(0, static_cast<std::size_t>(point)) + "." + digits.substr(static_cast<std::size_t>(point));
  std::size_t lead = 0;
  while (lead + 1 < out.size() && out[lead] == '0' && out[lead + 1] != '.') ++lead;
  return out.substr(lead);
}

// Fixed form; under scale factor k the value shown is x times 10^k, got by
// moving the point of the exactly rounded digits, not by multiplying.
std::string fixed_field(double x, int w, int d, int k) {
  if (!std::isfinite(x)) return non_finite(x, w);
  if (d < 0) d = 0;
  double a = std::fabs(x);
  std::string body;
  char buf[400];
  if (d + k >= 0) {
    std::snprintf(buf, sizeof buf, "%#.*f", d + k, a);
    body = k == 0 ? std::string(buf) : shift_point(buf, k);
  } else {
    std::snprintf(buf, sizeof buf, "%#.*f", d, a * std::pow(10.0, k));
    body = buf;
  }
  return justify_real(std::signbit(x) ? "-" : "", body, w);
}

// Gw.d: the fixed form, followed by n blanks, while the value rounded to d
// significant digits lies in [0.1, 10^d); the exponent form otherwise.  In
// the fixed form the scale factor has no effect.
std::string general_field(double x, int w, int d, int e, int k) {
  if (!std::isfinite(x)) return non_finite(x, w);
  if (d <= 0) return exp_field(x, w, d, e, k);
  int blanks = e > 0 ? e + 2 : 4;
  double a = std::fabs(x);
  int s = 1;  // digits before the point in the fixed form; zero prints as F(w-n).(d-1)
  if (a != 0.0) {
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.*e", d - 1, a);
    s = std::atoi(std::strchr(buf, 'e') + 1) + 1;
    if (s < 0 || s > d) return exp_field(x, w, d, e, k);
  }
  return fixed_field(x, w > 0 ? std::max(w - blanks, 1) : 0, d - s, 0) + std::string(static_cast<std::size_t>(blanks), ' ');
}

class Writer {
 public:
  explicit Writer(std::span<const EditArg> values) : values_(values) {}

  // Runs items; false once output has ended at a data descriptor with no
  // value left.
  bool run(std::span<const Item> items) {
    for (const Item& it : items) {
      for (int r = 0; r < it.repeat; ++r) {
        switch (it.kind) {
          case Item::Kind::Text:
            line_ += it.text;
            break;
          case Item::Kind::Blank:
            line_ += ' ';
            break;
          case Item::Kind::Slash:
            end_line();
            break;
          case Item::Kind::Scale:
            scale_ = it.w;
            break;
          case Item::Kind::Colon:
            if (next_ >= values_.size()) return false;
            break;
          case Item::Kind::Group:
            if (!run(it.group)) return false;
            break;
          default:
            if (next_ >= values_.size()) return false;
            line_ += field(it, values_[next_++]);
        }
      }
    }
    return true;
  }

  bool values_left() const { return next_ < values_.size(); }
  void end_line() {
    lines_.push_back(line_);
    line_.clear();
  }
  std::vector<std::string> finish() {
    end_line();
    return std::move(lines_);
  }

 private:
  std::string field(const Item& it, const EditArg& v) const {
    using K = EditArg::Kind;
    if (it.kind == Item::Kind::A) {
      if (v.kind() != K::Text) return stars(it.w);
      std::string s = v.text();
      if (it.w < 0) return s;
      if (static_cast<int>(s.size()) >= it.w) return s.substr(0, static_cast<std::size_t>(it.w));
      return s + std::string(static_cast<std::size_t>(it.w) - s.size(), ' ');
    }
    if (v.kind() == K::Text) return stars(it.w);
    if (it.kind == Item::Kind::I || (it.kind == Item::Kind::G && v.kind() == K::Int)) {
      if (v.kind() != K::Int) return stars(it.w);
      return int_field(v.integer(), it.w, it.kind == Item::Kind::I ? it.d : -1);
    }
    double x = v.kind() == K::Int ? static_cast<double>(v.integer()) : v.real();
    switch (it.kind) {
      case Item::Kind::E:
        return exp_field(x, it.w, it.d, it.e, scale_);
      case Item::Kind::F:
        return fixed_field(x, it.w, it.d, scale_);
      default:
        return general_field(x, it.w, it.d, it.e, scale_);
    }
  }

  std::span<const EditArg> values_;
  std::size_t next_ = 0;
  int scale_ = 0;
  std::string line_;
  std::vector<std::string> lines_;
};

}  // namespace

std::vector<std::string> edit_format(const char* format, std::span<const EditArg> values,
                                     std::size_t width) {
  const std::vector<Item> items = Parser(format).parse();
  Writer out(values);
  if (out.run(items)) {
    // Values left over when the format is exhausted start a new record at
    // the last top-level group (or at the start when there is none); a
    // reverted part without data descriptors could never use them up.
    auto last_group = std::find_if(items.rbegin(), items.rend(),
                                   [](const Item& it) { return it.kind == Item::Kind::Group; });
    std::span<const Item> again(items);
    if (last_group != items.rend()) again = again.subspan(static_cast<std::size_t>(items.rend() - last_group - 1));
    bool usable = std::any_of(again.begin(), again.end(), is_data);
    while (usable && out.values_left()) {
      out.end_line();
      if (!out.run(again)) break;
    }
  }
  std::vector<std::string> lines = out.finish();
  for (std::string& line : lines) {
    if (line.size() > width) line.resize(width);
    std::size_t end = line.find_last_not_of(' ');
    line.resize(end == std::string::npos ? 0 : end + 1);
    if (line.empty()) line.push_back(' ');
  }
  return lines;
}

}  // namespace zil
