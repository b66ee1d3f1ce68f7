#!/usr/bin/env bash
# Writes the tables of docs/file-format.md anew from src/record/RecordFormat.h. Needs the tests' build (./dev test).
set -euo pipefail
cd "$(dirname "$0")/.."
SHAPEMODEL_WRITE_DOCS=1 build/dev/bin/record_test --gtest_filter=RecordFormat.description_tells_the_table
