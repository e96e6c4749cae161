#!/usr/bin/env bash
# Mutation run: shows which faults the test suite notices. Puts each mutant
# of scripts/mutants.txt into the source in turn (one small change: a
# comparison, a message name, a record field...), rebuilds, runs the suite,
# and puts the source back. A mutant is killed when a test fails, survives
# when every test passes, and counts as "not built" when it does not compile.
# The tests of the mutated file's folder run first; the rest of the suite
# only when they pass. The suite must pass without a mutant first.
#   scripts/mutants.sh             every mutant
#   scripts/mutants.sh --quick N   the first N mutants only (a smoke)
#   scripts/mutants.sh --list      print the mutants and check that each still applies
# Builds in build-mutants/ (never touches build/); each mutant's build and test
# output is kept in build-mutants/mutants-log/.
set -euo pipefail
shopt -u patsub_replacement 2>/dev/null || true  # '&' in a replacement is a plain '&'

root="$(cd "$(dirname "$0")/.." && pwd)"
build="$root/build-mutants"
list_file="$root/scripts/mutants.txt"
export QT_QPA_PLATFORM=offscreen

# Tests left out of every run, as one ctest regular expression: they check no
# logic of the library, and take long or depend on real time:
#   SoundOutput, PlayerWindowShot, VideoWindowShot, DialogShots: real-time
#     sound and pictures at a display (not even built here);
#   HostEngineTest.MediaOutput_*: the engine's real-time media output, whose
#     reports follow the decoder's clock (on a busy machine their order can
#     differ, which would count a mutant as killed by chance);
#   InstallTree, InstalledConsumer, InstalledPlayer: install the tree and
#     build a program against it;
#   MetadataWriteAheadLogTest.TwoThousand...: plays 2,000 songs to bound the
#     database log;
#   PlayerProcessTest, PlayerMirrorTest, PlayerSenderTrackerTest: the desktop
#     bridge (mp-mpris), qcop and the player as processes on a private bus,
#     and the flood of the player's channels that bounds its memory;
#   SampleLibraryTest: the sample-library tool.
excluded='^(SoundOutput|PlayerWindowShot|VideoWindowShot|DialogShots|InstallTree|InstalledConsumer|InstalledPlayer)$'
excluded+='|^HostEngineTest\.MediaOutput_|^MetadataWriteAheadLogTest\.TwoThousand'
excluded+='|^(PlayerProcessTest|PlayerMirrorTest|PlayerSenderTrackerTest|SampleLibraryTest)\.'
# What the tests need built: mp_tests brings the player, the tools and the
# libraries it starts or opens.
targets=(mp_tests)
ctest_options=(--test-dir "$build" -j2 --timeout 120 --stop-on-failure --no-tests=ignore)

usage() {
  if [ "${1:-0}" = 0 ]; then
    sed -n '2,13p' "$0" | sed 's/^# \{0,1\}//'
  else
    sed -n '2,13p' "$0" | sed 's/^# \{0,1\}//' >&2
  fi
  exit "${1:-0}"
}

quick=0
list_only=false
while [ $# -gt 0 ]; do
  case "$1" in
    --quick) [[ "${2:-}" =~ ^[1-9][0-9]*$ ]] || usage 2; quick="$2"; shift 2 ;;
    --list) list_only=true; shift ;;
    -h|--help) usage 0 ;;
    *) echo "mutants: unknown option $1" >&2; usage 2 ;;
  esac
done

# --- The mutant list --------------------------------------------------------

labels=() files=() froms=() tos=()
read_list() {
  local line key value number=0 expect=label
  while IFS= read -r line || [ -n "$line" ]; do
    number=$((number + 1))
    line="${line%$'\r'}"
    [[ -z "${line//[[:space:]]/}" || "$line" == \#* ]] && continue
    if [[ ! "$line" =~ ^(label|file|from|to):[[:space:]]*(.*)$ ]]; then
      echo "mutants: $list_file:$number: expected \"$expect:\", found: $line" >&2
      exit 2
    fi
    key="${BASH_REMATCH[1]}" value="${BASH_REMATCH[2]}"
    if [ "$key" != "$expect" ]; then
      echo "mutants: $list_file:$number: expected \"$expect:\", found \"$key:\"" >&2
      exit 2
    fi
    case "$key" in
      label) labels+=("$value"); expect=file ;;
      file) files+=("$value"); expect=from ;;
      from) froms+=("$value"); expect=to ;;
      to) tos+=("$value"); expect=label ;;
    esac
  done < "$list_file"
  if [ "$expect" != label ]; then
    echo "mutants: $list_file: the last mutant ends before its \"$expect:\" line" >&2
    exit 2
  fi
}

# The whole file, trailing newlines included.
read_file() {
  local text
  text="$(cat "$1"; printf x)"
  printf '%s' "${text%x}"
}

# How often $2 occurs in the text $1: 0, 1, or 2 for "more than once".
occurrences() {
  local text="$1" piece="$2"
  [[ "$text" == *"$piece"* ]] || { echo 0; return; }
  text="${text#*"$piece"}"
  [[ "$text" == *"$piece"* ]] && echo 2 || echo 1
}

# Refuses the run when a mutant no longer applies: its file is gone, or its
# piece of code does not occur in it exactly once.
check_list() {
  local i count bad=0
  for i in "${!labels[@]}"; do
    if [ ! -f "$root/${files[i]}" ]; then
      echo "mutants: mutant $((i + 1)) (${labels[i]}): no file ${files[i]}" >&2
      bad=1
      continue
    fi
    if [ -z "${froms[i]}" ] || [ "${froms[i]}" = "${tos[i]}" ]; then
      echo "mutants: mutant $((i + 1)) (${labels[i]}): changes nothing" >&2
      bad=1
      continue
    fi
    count="$(occurrences "$(read_file "$root/${files[i]}")" "${froms[i]}")"
    if [ "$count" = 0 ]; then
      echo "mutants: mutant $((i + 1)) (${labels[i]}): not found in ${files[i]}: ${froms[i]}" >&2
      bad=1
    elif [ "$count" != 1 ]; then
      echo "mutants: mutant $((i + 1)) (${labels[i]}): found more than once in ${files[i]}: ${froms[i]}" >&2
      bad=1
    fi
  done
  if [ "$bad" != 0 ]; then
    echo "mutants: fix scripts/mutants.txt: each piece of code must occur exactly once in its file" >&2
    exit 2
  fi
}

read_list
check_list
total=${#labels[@]}
[ "$quick" -gt 0 ] && [ "$quick" -lt "$total" ] && total="$quick"

if $list_only; then
  for ((i = 0; i < ${#labels[@]}; i++)); do
    printf '%2d. %s\n    %s: %s\n    -> %s\n' "$((i + 1))" "${labels[i]}" "${files[i]}" "${froms[i]}" "${tos[i]}"
  done
  exit 0
fi

# --- Guards -----------------------------------------------------------------

mutated_files=()
mapfile -t mutated_files < <(printf '%s\n' "${files[@]:0:total}" | sort -u)
dirty="$(git -C "$root" status --porcelain -- "${mutated_files[@]}")"
if [ -n "$dirty" ]; then
  echo "mutants: these files have changes that are not committed; commit or stash them first:" >&2
  echo "$dirty" >&2
  exit 2
fi

# The source of the mutant in place, and its original beside it; put back on
# every way out (the end, an error, Ctrl-C).
backup_dir="$build/mutants-original"
current=""
restore() {
  if [ -n "$current" ]; then
    cp "$backup_dir/original" "$root/$current"
    [ -z "${1:-}" ] || echo "mutants: $1; $current is restored" >&2
    current=""
  fi
}
trap 'restore "stopped"' EXIT
trap 'restore "interrupted"; exit 130' INT
trap 'restore "terminated"; exit 143' TERM

# --- Build and tests --------------------------------------------------------

"$root/scripts/install-deps.sh"
. "$root/scripts/compiler-cache.sh"
# lld links the large test program in a third of the time of the default linker.
linker_options=()
if command -v ld.lld >/dev/null; then
  linker_options=(-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld -DCMAKE_SHARED_LINKER_FLAGS=-fuse-ld=lld
                  -DCMAKE_MODULE_LINKER_FLAGS=-fuse-ld=lld)
fi
cmake -S "$root" -B "$build" -G Ninja "${compiler_cache_options[@]}" "${linker_options[@]}" >/dev/null
mkdir -p "$backup_dir" "$build/mutants-log"

# The test suites of the folder of tests/ that mirrors the mutated file's
# folder, as a ctest regular expression (empty when there is none). They run
# first, so that most mutants are killed without waiting for the whole suite.
near_tests() {
  local folder="$root/tests/$(dirname "$1")" suites
  [ -d "$folder" ] || return 0
  suites="$(grep -rhoE '^(TEST|TEST_F|TEST_P)\([[:space:]]*[A-Za-z0-9_]+' "$folder" --include='*.cpp' \
            | sed -E 's/.*\([[:space:]]*//' | sort -u | paste -sd'|')"
  [ -n "$suites" ] && echo "^([^/.]+/)?($suites)\\."
  return 0
}

# Builds, then runs the tests near the mutated file and, when they pass, the
# rest. Succeeds when every test passes.
build_and_test() {
  local near="$1" log="$2"
  cmake --build "$build" --target "${targets[@]}" >>"$log" 2>&1 || return 3
  if [ -n "$near" ]; then
    ctest "${ctest_options[@]}" -R "$near" -E "$excluded" >>"$log" 2>&1 || return 1
    ctest "${ctest_options[@]}" -E "$excluded|$near" >>"$log" 2>&1 || return 1
  else
    ctest "${ctest_options[@]}" -E "$excluded" >>"$log" 2>&1 || return 1
  fi
}

first_failed_test() {
  sed -n '/The following tests FAILED:/{n;p;q}' "$1" | sed -E 's/^[[:space:]]*[0-9]+ - //; s/ \(.*\)$//'
}

started=$SECONDS
echo "mutants: building and running the suite without a mutant first"
if ! build_and_test "" "$build/mutants-log/unmutated.log"; then
  echo "mutants: the suite fails without a mutant (see build-mutants/mutants-log/unmutated.log);" \
       "a mutation run would mean nothing" >&2
  exit 1
fi
echo "mutants: the suite passes ($((SECONDS - started)) s); $total mutants follow"

killed=0 survived=0 not_built=0
survivors=()
for ((i = 0; i < total; i++)); do
  file="${files[i]}" label="${labels[i]}"
  log="$build/mutants-log/$(printf '%02d' $((i + 1))).log"
  : >"$log"
  cp "$root/$file" "$backup_dir/original"
  current="$file"
  text="$(read_file "$root/$file")"
  printf '%s' "${text/"${froms[i]}"/"${tos[i]}"}" >"$root/$file"
  began=$SECONDS
  result=0
  build_and_test "$(near_tests "$file")" "$log" || result=$?
  restore
  seconds=$((SECONDS - began))
  case "$result" in
    0) verdict=survived; survived=$((survived + 1)); survivors+=("$label ($file)") ;;
    3) verdict="not built"; not_built=$((not_built + 1)) ;;
    *) verdict=killed; killed=$((killed + 1)) ;;
  esac
  detail="$file, ${seconds} s"
  [ "$verdict" = killed ] && detail+=", by $(first_failed_test "$log")"
  printf '%-9s  %2d. %s  (%s)\n' "$verdict" "$((i + 1))" "$label" "$detail"
done

echo "mutants: $total, killed: $killed, survived: $survived, not built: $not_built"
for survivor in "${survivors[@]}"; do
  echo "  survived: $survivor"
done
echo "mutants: the run took $(( (SECONDS - started) / 60 )) min $(( (SECONDS - started) % 60 )) s"
