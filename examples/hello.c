#include <stdio.h>
#include <zil.h>
int main(void) { ZilError fail = {0}; p01acc(NULL, 0, "hello", &fail); printf("%d %s\n", (int)fail.code, fail.message); return 0; }
