// m01cuc: sorts a linked list by relinking its nodes.
#include <cstring>

#include "frame/export.hpp"
#include "frame/report.hpp"
#include "sort/detail/checks.hpp"
#include "sort/detail/elements.hpp"
#include "zil_sort.h"

namespace {

// The link field may sit at any offset, so it is read and written as bytes.
struct Links {
  ptrdiff_t offset;
  void* next(void* node) const {
    void* p;
    std::memcpy(&p, static_cast<char*>(node) + offset, sizeof p);
    return p;
  }
  void set_next(void* node, void* p) const {
    std::memcpy(static_cast<char*>(node) + offset, &p, sizeof p);
  }
};

// Brent's cycle detection: true when following the links from head never
// reaches a null link.  Reads each link a bounded number of times and writes
// nothing, so a looping list is left exactly as it came.
bool has_loop(void* head, const Links& links) {
  void* slow = head;
  void* fast = head;
  for (size_t power = 1, steps = 0; fast;) {
    fast = links.next(fast);
    if (fast == slow && fast) return true;
    if (++steps == power) {
      slow = fast;
      power *= 2;
      steps = 0;
    }
  }
  return false;
}

}  // namespace

// Merges the chains like the digits of a binary counter, as the ranking does,
// with the chain of earlier nodes on the left so that equal nodes keep their
// order.
extern "C" void m01cuc(Pointer* head, ptrdiff_t offset, zil::sort::Compare compare,
                       Integer order, ZilError* fail) {
  using namespace zil::sort;
  zil::Reporter rep(fail, "m01cuc");
  if (rep.null_param(head, "head")) return;
  if (offset < 0) {
    rep.raise(ZE_INT_ARG_LT, "offset", "0", "offset", static_cast<long>(offset));
    return;
  }
  if (bad_compare(rep, compare)) return;
  if (bad_order(rep, order)) return;
  const Links links{offset};
  if (has_loop(*head, links)) return rep.raise_plain(ZE_CH_LOOP);

  const Order ord{compare, order == Zil_Descending};
  auto merge = [&](void* a, void* b) {
    void* first = nullptr;
    void* last = nullptr;
    auto append = [&](void* node) {
      if (last) links.set_next(last, node);
      else first = node;
      last = node;
    };
    while (a && b) {
      if (ord.before(b, a)) {
        void* nb = links.next(b);
        append(b);
        b = nb;
      } else {
        void* na = links.next(a);
        append(a);
        a = na;
      }
    }
    append(a ? a : b);
    return first;
  };

  // heads[k] is a chain of 2^k nodes or empty; 64 levels cover any list
  // that fits in memory.
  void* heads[64] = {};
  for (void* node = *head; node;) {
    void* next = links.next(node);
    links.set_next(node, nullptr);
    void* carry = node;
    int k = 0;
    for (; heads[k]; ++k) {
      carry = merge(heads[k], carry);
      heads[k] = nullptr;
    }
    heads[k] = carry;
    node = next;
  }
  void* chain = nullptr;
  for (void* h : heads)
    if (h) chain = chain ? merge(h, chain) : h;
  *head = chain;
  rep.success();
}
ZIL_ALIAS(m01cuc, zil_chain_sort);
