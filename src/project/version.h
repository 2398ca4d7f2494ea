// The tool's version: written on the first line of every project file, shown by the About box and
// `tgxcfg --version`; CMake reads it from here for the packages.
#pragma once

constexpr char kToolVersion[] = "6.2.2";
