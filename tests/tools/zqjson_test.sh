#!/usr/bin/env bash
# Usage: zqjson_test.sh ZQJSON EXAMPLES_DIR
# Runs zqjson on inputs and checks exit status, standard output and standard error exactly.
set -u
tool=$1 examples=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failures=0 passed=0

# check NAME STDIN EXPECTED_STATUS EXPECTED_STDOUT EXPECTED_STDERR ARGS...
check() {
  local name=$1 input=$2 status=$3 out=$4 err=$5
  shift 5
  printf '%s' "$input" | "$tool" "$@" >"$scratch/out" 2>"$scratch/err"
  local actual=$?
  if [[ $actual != "$status" || $(cat "$scratch/out") != "$out" || $(cat "$scratch/err") != "$err" ]]; then
    echo "FAIL $name: status $actual (expected $status)"
    echo "  stdout: $(cat "$scratch/out")"
    echo "  stderr: $(cat "$scratch/err")"
    failures=$((failures + 1))
  else
    passed=$((passed + 1))
  fi
}

usage=$("$tool" --help)
check StdinNumber '1.5' 0 '1x1 double' ''
check DashIsStdin 'true' 0 '1x1 logical' '' -
check ExampleText '' 0 '1x5 char' '' "$examples/text.json"
check ExampleNumber '' 0 '1x1 double' '' "$examples/number.json"
check SyntaxErrorShowsExcerptAndCaret '' 1 '' "$(printf 'JSON ParserException (E0008): Expected a string (opening quote) (Line 2, Column 2)\n\t2,,3]\n\t  ^')" "$examples/syntax-error.json"
check TrailingBlankIsIncomplete '1 ' 1 '' "$(printf 'JSON ParserException (E0000): Parse incomplete (Line 1, Column 1)\n\t1 \n\t ^')"
check ConversionErrorShowsClassAndText '' 1 '' 'foundation::zorbaldata::json::InvalidInputJSONValue: Input value is either foundation::json::Undefined or foundation::json::Null. The value cannot be converted to ZORBAL Data Array.' "$examples/null.json"
check InvalidUtf8ShowsConverterClass "$(printf '"\xff"')" 1 '' 'yx::i18n::CvtInvalidCharacter: Invalid UTF-8 byte sequence at byte offset 0'
check MissingFile '' 1 '' "zqjson: cannot read $scratch/none.json: No such file or directory" "$scratch/none.json"
check UnknownOption '' 2 '' "$(printf 'zqjson: unknown option --bogus\n%s' "$usage")" --bogus
check TwoInputs '' 2 '' "$(printf 'zqjson: more than one input: a and b\n%s' "$usage")" a b
check Help '' 0 "$usage" '' -h

echo "$passed passed, $failures failed"
[[ $failures == 0 ]]
