#!/usr/bin/env bash
# Fails if clang-format would lay out a source file in another way. Exit status 77: not checked.
set -euo pipefail
cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

# Each version has its own ideas about layout, so only one of them can be the judge.
version=14
tool=$(command -v clang-format-$version || command -v clang-format) || {
    echo "clang-format is not installed: layout not checked"
    exit 77
}
[[ $("$tool" --version) == *"version $version."* ]] || {
    echo "clang-format $version is needed, this is $("$tool" --version): layout not checked"
    exit 77
}

folders=()
for folder in src tests bench fuzz; do
    [[ ! -d $folder ]] || folders+=("$folder")
done
find "${folders[@]}" \( -name '*.h' -o -name '*.cpp' \) -print0 |
    xargs -0 -r -n 20 -P "$(nproc)" "$tool" --dry-run -Werror
