#!/usr/bin/python3
"""Tests scripts/mutate on a source of a few lines: which mutants it finds, that they compile side by
side, that the compiler's messages about the others name them, and which ones the sample's own test kills.

    tests/mutants/ToolTest.py [--update-expected]

Exit code 77 (skipped) where the packages of scripts/packages/mutate are not installed.
"""
import pathlib
import resource
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parents[1]
sys.path.insert(0, str(ROOT / "scripts/mutation"))
try:
    import clang.cindex  # noqa: F401
except ImportError:
    print("python3-clang is not installed: scripts/bootstrap --mutate")
    sys.exit(77)

import blame  # noqa: E402
import equivalents  # noqa: E402
import main as tool  # noqa: E402
import mutants  # noqa: E402
import programs  # noqa: E402
import schema  # noqa: E402
import tree  # noqa: E402

SAMPLE = HERE / "sample/Sample.cpp"
EXPECTED = HERE / "sample/expected.txt"


def compiled(folder, chosen):
    """Compiles the sample with these mutants; returns the compiler's messages, "" after a success."""
    written = schema.write(mutants.read(SAMPLE), chosen)
    (folder / "Sample.cpp").write_text(written.text())
    done = subprocess.run(
        ["g++", "-std=c++20", "-w", "-fmax-errors=0", "-I", ROOT, folder / "Sample.cpp",
         HERE / "sample/SampleTest.cpp", ROOT / "scripts/mutation/Switch.cpp", "-o", folder / "sample"], capture_output=True, text=True)
    return done.stderr if done.returncode else "", written


def verdicts(folder, found):
    """One line for each mutant of the sample, in the order of the text."""
    refused = set()
    while True:
        messages, written = compiled(folder, [m for m in found if m.id not in refused])
        if not messages:
            break
        more = blame.blamed(messages, folder, folder, {"Sample.cpp": written})
        assert more, f"no mutant is blamed for\n{messages}"
        refused |= more.keys()
    for mutant in found:
        if mutant.id in refused:
            verdict = "does not compile"
        else:
            try:
                code = subprocess.run([folder / "sample"], env={"VEMRA_MUTANT": mutant.id}, timeout=60).returncode
                verdict = "killed" if code else "alive"
            except subprocess.TimeoutExpired:
                verdict = "killed"
        yield f"{mutant.line}: {mutant.kind}: {mutant.change}: {verdict}"


def mutants_do_not_find_the_users_own_files():
    program = programs.Program(pathlib.Path("test_desk_program"), {"VEMRA_PLACE": "here"}, "apps/desk")
    given = programs.confined("/scratch", program, {"VEMRA_MUTANT": "1"})
    for name in ("HOME", "XDG_DATA_HOME", "TMPDIR"):
        assert given[name] == "/scratch", f"{name} is {given[name]}"
    assert given["VEMRA_PLACE"] == "here" and given["VEMRA_MUTANT"] == "1", given


def reached_with_a_limit_of_files(folder):
    """The reached mutants of the sample when a test lets no file grow beyond 40 bytes."""
    reached = folder / "reached with a limit"
    subprocess.run([folder / "sample"], check=True, restore_signals=False,  # SIGXFSZ stays ignored
                   env={"VEMRA_MUTANTS_REACHED": str(reached), "VEMRA_MUTANTS_TEST": "Sample.main"},
                   preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (40, resource.RLIM_INFINITY)))
    return reached.read_text().splitlines()


def a_mutant_that_no_test_reaches_is_alive(mutant):
    nothing_listed = equivalents.Equivalents(HERE / "no such file")
    outcome = programs.attempt(mutant, [])
    assert tool.judged(mutant, outcome, nothing_listed) == ("alive", "ALIVE: no test reaches it"), outcome


def headers_are_read_in_the_repository_and_generated_ones_in_the_copy():
    copy = tree.Tree(with_qt=False, headers=False)
    assert copy.where_it_is_read(f"-I{copy.source}") == f"-I{ROOT}"
    generated = f"-I{copy.build}/apps/generated"
    assert copy.where_it_is_read(generated) == generated


def a_sample_is_compiled_with_what_was_compiled_before(found):
    with tempfile.TemporaryDirectory() as folder:
        tree.Tree(with_qt=False, headers=False, below=pathlib.Path(folder)).choose(found[:1])
        later = tree.Tree(with_qt=False, headers=False, below=pathlib.Path(folder))
        later.choose(found[1:2])
    assert later.compiled == {mutant.id for mutant in found[:2]}, later.compiled


def tests_that_change_to_another_user_reach_their_files():
    with programs.scratch() as folder:
        assert pathlib.Path(folder).stat().st_mode & 0o777 == 0o755


def main():
    tests_that_change_to_another_user_reach_their_files()
    headers_are_read_in_the_repository_and_generated_ones_in_the_copy()
    mutants_do_not_find_the_users_own_files()
    found = mutants.find("Sample.cpp", str(SAMPLE), ["-std=c++20", f"-I{ROOT}"])
    assert len({m.id for m in found}) == len(found), "two mutants have the same number"
    assert len({(m.source, m.change) for m in found}) == len(found), "the list cannot tell two mutants apart"
    a_mutant_that_no_test_reaches_is_alive(found[0])
    a_sample_is_compiled_with_what_was_compiled_before(found)
    with tempfile.TemporaryDirectory() as folder:
        actual = list(verdicts(pathlib.Path(folder), found))
        without = subprocess.run([f"{folder}/sample"], env={}).returncode
        assert without == 0, "the sample's test fails without a mutant"
        reached = pathlib.Path(folder) / "reached"
        subprocess.run([f"{folder}/sample"], env={"VEMRA_MUTANTS_REACHED": str(reached),
                                                  "VEMRA_MUTANTS_TEST": "Sample.main"}, check=True)
        lines = reached.read_text().splitlines()
        assert lines and all(line.endswith(" Sample.main") for line in lines), lines
        assert len(lines) == len(set(lines)), "a mutant was written down twice"
        assert reached_with_a_limit_of_files(pathlib.Path(folder)) == lines
    if sys.argv[1:] == ["--update-expected"]:
        EXPECTED.write_text("\n".join(actual) + "\n")
    if EXPECTED.read_text().splitlines() != actual:
        import difflib
        print("\n".join(difflib.unified_diff(EXPECTED.read_text().splitlines(), actual, "expected", "actual",
                                             lineterm="")))
        sys.exit(1)


if __name__ == "__main__":
    main()
