// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT

// The kernels, written once in the compiler's own vectors of 64 bytes, which it divides into what the instruction set
// has. Included by one source file for each instruction set, which is compiled with its own flags. Nothing in these
// headers may call an inline function of another one: the linker could pick a copy of it that older processors cannot
// run.

#include "engine/kernels/kernels_codecs.h"
#include "engine/kernels/kernels_scanning.h"
#include "engine/kernels/kernels_writing.h"
