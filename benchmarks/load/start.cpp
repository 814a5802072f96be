// SPDX-License-Identifier: MIT
//
// A program that does nothing but load what it is linked to.
int main() { return 0; }
