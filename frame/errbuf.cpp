// The inner error record errbuf: written by a by-reference routine when it
// fails, read back by the public routine above it.
//
// The values travel as the inner descriptor printed them and are put into
// the public message as text, so that the public text shows each number
// exactly as the inner layer wrote it.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <vector>

#include "frame/inner.hpp"

namespace zil {

void errbuf_reset(char* errbuf) {
  std::memset(errbuf, ' ', kErrbufSize - 1);
  std::memcpy(errbuf, "NONE", 4);
  errbuf[kErrbufSize - 1] = '\0';
}

void errbuf_write(char* errbuf, const char* srname, Integer failnum, Integer msgid, const char* descriptor,
                  std::span<const EditArg> values, int count) {
  if (count < 0) count = static_cast<int>(values.size());
  std::vector<EditArg> args{EditArg(srname), EditArg(failnum), EditArg(msgid), EditArg(count)};
  args.insert(args.end(), values.begin(), values.end());
  const std::string line = edit_format(descriptor, args, kErrbufSize - 1).front();
  std::memset(errbuf, ' ', kErrbufSize - 1);
  std::memcpy(errbuf, line.data(), std::min(line.size(), kErrbufSize - 1));
  errbuf[kErrbufSize - 1] = '\0';
}

void report_errbuf(Reporter& rep, const char* errbuf, Integer ifail, std::span<const ErrbufMessage> messages) {
  rep.set_errnum(ifail);
  if (!errbuf) errbuf = "";
  char name[7];
  int failnum = 0;
  int msgid = 0;
  // A record without its three fields is reported, and the reading goes on
  // with no message id, which no table holds: that reports it once more.
  if (std::sscanf(errbuf, "%6s %d %d", name, &failnum, &msgid) != 3) rep.internal_error();
  auto m = std::find_if(messages.begin(), messages.end(), [&](const ErrbufMessage& e) { return e.msgid == msgid; });
  if (m == messages.end() || m->values < 0 || m->values > 4) {
    rep.internal_error();
    return;
  }
  // A message without a literal of its own is the table's text as it stands.
  if (!m->literal) {
    rep.raise_plain(m->code);
    return;
  }
  if (m->values == 0) {
    rep.raise_text(m->code, m->literal);
    return;
  }
  static constexpr const char* kScan[] = {
      "%6s %d %d %d %19s",
      "%6s %d %d %d %19s %19s",
      "%6s %d %d %d %19s %19s %19s",
      "%6s %d %d %d %19s %19s %19s %19s",
  };
  char v[4][20] = {};
  int count = 0;
  if (std::sscanf(errbuf, kScan[m->values - 1], name, &failnum, &msgid, &count, v[0], v[1], v[2], v[3]) !=
      4 + m->values) {
    rep.internal_error();
    return;
  }
  rep.raise_text(m->code, m->literal, v[0], v[1], v[2], v[3]);
}

}  // namespace zil
