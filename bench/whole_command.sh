#!/usr/bin/env bash
# One whole "logger -syslogoutput on" edit through ktl-cli, against the same
# INI edit made by crudini and against /bin/true, measured in one hyperfine
# run so that the ratios share the machine's load. "ktl-cli --help" runs
# beside them: the start of ktl-cli and the C++ runtime without any command,
# the floor under every command.
#
# Then the paired runs: an edit, "-confirm cur" and a "-save -nochk" of a
# pending edit with two mount points (which runs /bin/mount, as it must),
# each against a dynamically linked C++ hello world built here, one after the
# other in every round, so that both share the machine's load at that moment.
# It prints the ratio of the wall-clock medians and the median of the
# rounds' ratios, with the targets (edit 1.2, confirm 1.3, save 2 times
# hello). KTL_PAIRED_ROUNDS sets the rounds (default 200, at least 100).
#   bench/whole_command.sh [BUILD_DIR [BASELINE_BUILD_DIR]]
# BUILD_DIR defaults to build-bench, the "bench" preset. With a baseline (a
# Release build of an earlier commit) its ktl-cli makes the same edit in the
# same run, "before" beside "after".
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
build_dir=$(cd "${1:-$top/build-bench}" && pwd)
cli="$build_dir/devhost/ktl-cli"
[ -x "$cli" ] || { echo "whole_command: no $cli; build the \"bench\" preset first (bench/README.md)" >&2; exit 1; }
baseline=()
if [ -n "${2:-}" ]; then
  baseline_cli=$(cd "$2" && pwd)/devhost/ktl-cli
  [ -x "$baseline_cli" ] || { echo "whole_command: no $baseline_cli" >&2; exit 1; }
  baseline=(-n ktl-cli-before "$baseline_cli logger -syslogoutput on")
fi
for tool in hyperfine crudini g++; do
  command -v "$tool" >/dev/null || { echo "whole_command: $tool is missing; run scripts/setup.sh" >&2; exit 1; }
done

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# A temporary state directory, as the end-to-end tests set it up.
export KTL_STATE_DIR="$work/state"
export KTL_PLUGIN_DIR="$build_dir/plugins"
export KTL_CATALOGUE="$top/devhost/catalogue/messages.ini"
export KTL_TEMPLATE_DIR="$top/devhost/templates"
export KTL_DEFAULT_CONF="$top/devhost/default/logger.ini"
export KTL_ROOT="$work/root"
export KTL_TRACE_MASK=0
mkdir -p "$KTL_STATE_DIR" "$KTL_ROOT"
cp "$KTL_DEFAULT_CONF" "$work/crudini.ini"

# hyperfine starts the commands itself (--shell=none): ktl-cli's edit session
# belongs to its parent process, so every run is the same session's edit.
# A one-shot command must not load the shell's line-editing library: only
# `ktl-cli` alone on a terminal loads libktl_shell.so and with it libedit.
echo "libraries that ktl-cli links:  $(ldd "$cli" | awk '{print $1}' | tr '\n' ' ')"
loaded=$(LD_DEBUG=files "$cli" logger -confirm cur 2>&1 >/dev/null | grep -c 'file=.*libedit' || true)
echo "libedit loaded by a one-shot command: $loaded time(s)"
[ "$loaded" -eq 0 ] || { echo "whole_command: a one-shot command loaded libedit" >&2; exit 1; }

hyperfine --shell=none --warmup 20 --min-runs 300 --export-json "$work/runs.json" \
  -n ktl-cli "$cli logger -syslogoutput on" \
  -n crudini "crudini --set $work/crudini.ini Syslog Output 0x11" \
  -n true "/bin/true" \
  -n ktl-cli-start "$cli --help" \
  "${baseline[@]}"

python3 - "$work/runs.json" <<'PY'
import json, sys
runs = {r["command"]: r for r in json.load(open(sys.argv[1]))["results"]}
# Wall-clock means suffer most from other load on the machine; the minimum
# and the CPU time (user + system) are shown beside them.
measures = {
    "mean": lambda r: r["mean"],
    "median": lambda r: r["median"],
    "min": lambda r: r["min"],
    "user+sys": lambda r: r["user"] + r["system"],
}
print()
for name, of in measures.items():
    cli, crudini, true = (of(runs[c]) for c in ("ktl-cli", "crudini", "true"))
    print(f"{name:9s} ktl-cli {cli*1e3:8.3f} ms  crudini {crudini*1e3:8.3f} ms  true {true*1e3:7.3f} ms"
          f"  ktl-cli/true {cli/true:6.2f} ({'met' if cli/true <= 4 else 'MISSED'}, <= 4)"
          f"  crudini/ktl-cli {crudini/cli:6.2f} ({'met' if crudini/cli >= 10 else 'MISSED'}, >= 10)")
start, true = runs["ktl-cli-start"], runs["true"]
print(f"ktl-cli --help alone: median {start['median']*1e3:.3f} ms = {start['median']/true['median']:.2f} x true;"
      f" user+sys {(start['user']+start['system'])*1e3:.3f} ms = "
      f"{(start['user']+start['system'])/(true['user']+true['system']):.2f} x true")
if "ktl-cli-before" in runs:
    # hyperfine runs one command after the other; the interleaved runs
    # below share the machine's load between before and after.
    before, after = runs["ktl-cli-before"], runs["ktl-cli"]
    print(f"one-shot edit before {before['median']*1e3:.3f} ms, after {after['median']*1e3:.3f} ms (median):"
          f" after/before {after['median']/before['median']:.3f}; user+sys"
          f" {(after['user']+after['system'])/(before['user']+before['system']):.3f}")
PY

# The paired runs against a C++ hello world.
printf '#include <iostream>\nint main() { std::cout << "hello" << std::endl; }\n' > "$work/hello.cpp"
g++ -O2 -o "$work/hello" "$work/hello.cpp"
python3 - "$cli" "$work" "${KTL_PAIRED_ROUNDS:-200}" "$build_dir/bench/load_floor" <<'PY'
import os, statistics, sys, time
cli, work, rounds, load_floor = sys.argv[1], sys.argv[2], max(100, int(sys.argv[3])), sys.argv[4]
hello = os.path.join(work, "hello")

def state(name):
    env = dict(os.environ, KTL_STATE_DIR=os.path.join(work, name))
    env.pop("KTL_MOUNT_CMD", None)  # the save runs /bin/mount
    os.makedirs(env["KTL_STATE_DIR"], mode=0o700, exist_ok=True)
    return env

# posix_spawn (vfork) and waitpid: subprocess.run adds a few milliseconds of
# its own to every run, which would hide the differences measured here.
devnull = os.open(os.devnull, os.O_WRONLY)
quiet = [(os.POSIX_SPAWN_DUP2, devnull, 1), (os.POSIX_SPAWN_DUP2, devnull, 2)]

def run(argv, env):
    pid = os.posix_spawn(argv[0], argv, env, file_actions=quiet)
    _, status = os.waitpid(pid, 0)
    if os.waitstatus_to_exitcode(status) != 0:
        sys.exit(f"whole_command: {' '.join(argv)} failed")

edit_env, confirm_env, save_env = state("paired-edit"), state("paired-confirm"), state("paired-save")
run([cli, "logger", "-confirm", "cur"], confirm_env)
# A pending edit with two mount points, mounted here, kept to be restored
# before each save.
for words in (["-device", "disk", "-setting", "on"], ["-mp", "/", "-setting", "on"],
              ["-mp", "/proc", "-setting", "on", "-threshold", "80"]):
    run([cli, "logger"] + words, save_env)
save_dir = save_env["KTL_STATE_DIR"]
kept = {name: open(os.path.join(save_dir, name), "rb").read() for name in ("logger.ini", "logger.edit.ini")}

def restore_save_state():
    for name, content in kept.items():
        with open(os.path.join(save_dir, name), "wb") as f:
            f.write(content)
    # The save waits for its own writes to reach the disk, not for these.
    os.sync()

# The floors beside them, without a target: ktl-cli's start with no command,
# the same start plus the plug-in's load (bench/load_floor.cpp: the part of
# every form that no command's work can remove), that plus the least file
# work of an edit (lock, read, atomic replacement, audit line), and the
# mount command alone (which the save runs once).
forms = [
    ("edit", [cli, "logger", "-syslogoutput", "on"], edit_env, None, 1.2),
    ("-confirm cur", [cli, "logger", "-confirm", "cur"], confirm_env, None, 1.3),
    ("-save -nochk, 2 mount points", [cli, "logger", "-save", "-nochk"], save_env, restore_save_state, 2.0),
    ("floor: ktl-cli --help", [cli, "--help"], edit_env, None, None),
    ("floor: start + plug-in load", [load_floor, os.environ["KTL_PLUGIN_DIR"] + "/libktl_cli-logger.so"],
     edit_env, None, None),
    ("floor: the same + edit's files", [load_floor, os.environ["KTL_PLUGIN_DIR"] + "/libktl_cli-logger.so",
     edit_env["KTL_STATE_DIR"]], edit_env, None, None),
    ("floor: /bin/mount alone", ["/bin/mount"], edit_env, None, None),
]
# One form after the other, so that the save's flushes do not slow the
# others; within a form, each round is a pair.
print(f"\npaired with a C++ hello world, {rounds} rounds each (after 5 rounds of warm-up)")
for name, argv, env, prepare, target in forms:
    times, hellos, ratios = [], [], []
    for i in range(rounds + 5):
        pair = {}
        for which in (("form", "hello") if i % 2 else ("hello", "form")):
            if which == "form" and prepare:
                prepare()
            start = time.perf_counter()
            run(argv if which == "form" else [hello], env)
            pair[which] = time.perf_counter() - start
        if i >= 5:
            times.append(pair["form"])
            hellos.append(pair["hello"])
            ratios.append(pair["form"] / pair["hello"])
    median, hello_median, paired = (statistics.median(x) for x in (times, hellos, ratios))
    print(f"{name:30s} median {median*1e3:7.3f} ms, hello {hello_median*1e3:6.3f} ms:"
          f" ratio of medians {median/hello_median:5.2f}, median of paired ratios {paired:5.2f}"
          + ("" if target is None else f" ({'met' if paired <= target else 'MISSED'}, <= {target})"))
PY

if [ "${#baseline[@]}" -gt 0 ]; then
  python3 - "$cli" "$baseline_cli" <<'PY'
import os, resource, statistics, subprocess, sys, time
after_cli, before_cli = sys.argv[1], sys.argv[2]
times = {"before": [], "after": []}
cpu = {"before": 0.0, "after": 0.0}
rounds = 400
for i in range(rounds):
    for name, cli in (("before", before_cli), ("after", after_cli)) if i % 2 else (("after", after_cli), ("before", before_cli)):
        usage = resource.getrusage(resource.RUSAGE_CHILDREN)
        start = time.perf_counter()
        subprocess.run([cli, "logger", "-syslogoutput", "on"], stdout=subprocess.DEVNULL, check=True)
        times[name].append(time.perf_counter() - start)
        done = resource.getrusage(resource.RUSAGE_CHILDREN)
        cpu[name] += (done.ru_utime - usage.ru_utime) + (done.ru_stime - usage.ru_stime)
b, a = statistics.median(times["before"]), statistics.median(times["after"])
print(f"interleaved, {rounds} runs each: median before {b*1e3:.3f} ms, after {a*1e3:.3f} ms, after/before {a/b:.3f};"
      f" user+sys per run before {cpu['before']/rounds*1e3:.3f} ms, after {cpu['after']/rounds*1e3:.3f} ms,"
      f" after/before {cpu['after']/cpu['before']:.3f}")
PY
fi
