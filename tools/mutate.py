#!/usr/bin/env python3
"""Mutation check: does the C++ test suite catch small faults in the library?

    python3 tools/mutate.py [--faults FILE] [--scratch DIR] [--only ID ...] [--timeout S]

Copies the worktree to a scratch folder with a build directory of its own, builds it, checks that
the suite passes, then applies the faults of tools/mutation_faults.txt one at a time: each edits
one line of one file, the test programs are rebuilt incrementally and run one after another
until one fails (caught) or all pass (missed). The file is restored after each fault. A fault
whose text is not found exactly once, or that does not compile, is reported as such.
Prints one line per fault and a summary line. Standard library only.

A fault in the list:

    [region1.t1ph-stop]
    file: src/water/formulation/region1.cpp
    find: while (count <= settings.maxIterations && std::fabs(step) > limit);
    replace: while (count < settings.maxIterations && std::fabs(step) > limit);

`find` is a snippet that must occur exactly once in the file; it is replaced by `replace`. A \\n
in either stands for a line break, so that a snippet can take in a neighbouring line to be unique.
"""
import argparse
import os
import shutil
import subprocess
import sys
import time

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
FAULTS = os.path.join(ROOT, 'tools', 'mutation_faults.txt')
# The C++ suite, quickest first so that a fault fails fast.
PROGRAMS = ['test_frame', 'test_formulation', 'test_dispatch', 'test_properties', 'test_process', 'test_gas',
            'test_batch', 'test_threads', 'test_sweep']


def read_faults(path):
    faults, current = [], None
    for number, raw in enumerate(open(path, encoding='utf-8'), 1):
        line = raw.rstrip('\n')
        if not line.strip() or line.lstrip().startswith('#'):
            continue
        if line.startswith('[') and line.endswith(']'):
            current = {'id': line[1:-1], 'line': number}
            faults.append(current)
            continue
        key, sep, value = line.partition(': ')
        if current is None or not sep or key not in ('file', 'find', 'replace'):
            sys.exit('%s:%d: cannot read "%s"' % (path, number, line))
        current[key] = value.replace('\\n', '\n')
    for fault in faults:
        missing = [k for k in ('file', 'find', 'replace') if k not in fault]
        if missing:
            sys.exit('%s:%d: fault %s lacks %s' % (path, fault['line'], fault['id'], ', '.join(missing)))
    return faults


def copy_tree(scratch):
    tree = os.path.join(scratch, 'tree')
    files = subprocess.run(['git', 'ls-files', '-co', '--exclude-standard'], cwd=ROOT, check=True,
                           capture_output=True, text=True).stdout.split('\n')
    wanted = set(filter(None, files))
    # A file that the worktree no longer has must not linger in the copy: the build globs.
    for folder, _, names in os.walk(tree):
        for name in names:
            path = os.path.join(folder, name)
            if os.path.relpath(path, tree) not in wanted:
                os.remove(path)
    for name in wanted:
        source = os.path.join(ROOT, name)
        if not os.path.isfile(source):
            continue
        target = os.path.join(tree, name)
        os.makedirs(os.path.dirname(target), exist_ok=True)
        if not os.path.exists(target) or open(source, 'rb').read() != open(target, 'rb').read():
            shutil.copyfile(source, target)  # a new mtime, so that make rebuilds it
    # The tests read the release tables beside the worktree.
    shared = os.path.join(scratch, 'shared')
    if not os.path.exists(shared):
        os.symlink(os.path.realpath(os.path.join(ROOT, '..', 'shared')), shared)
    return tree


def build(tree, build_dir, timeout):
    command = ['cmake', '--build', build_dir, '-j', '2', '--target'] + PROGRAMS
    try:
        return subprocess.run(command, cwd=tree, capture_output=True, timeout=timeout).returncode == 0
    except subprocess.TimeoutExpired:
        return False


def failing_program(build_dir, timeout):
    """The first test program that fails, or None when all pass."""
    env = dict(os.environ, LSAN_OPTIONS='detect_leaks=0')
    for program in PROGRAMS:
        try:
            result = subprocess.run([os.path.join(build_dir, 'tests', program), '--gtest_brief=1'],
                                    cwd=build_dir, capture_output=True, timeout=timeout, env=env)
        except subprocess.TimeoutExpired:
            return program + ' (timeout)'
        if result.returncode != 0:
            return program
    return None


def main():
    parser = argparse.ArgumentParser(description=__doc__.split('\n')[0])
    parser.add_argument('--faults', default=FAULTS)
    parser.add_argument('--scratch', default='/tmp/tavlib6-mutate')
    parser.add_argument('--only', nargs='*', help='fault ids to run')
    parser.add_argument('--timeout', type=float, default=300, help='seconds per test program')
    parser.add_argument('--list', action='store_true', help='check that every fault applies, build nothing')
    parser.add_argument('--prepare', action='store_true', help='copy and build the scratch tree, apply no fault')
    args = parser.parse_args()

    faults = read_faults(args.faults)
    if args.only:
        faults = [f for f in faults if f['id'] in args.only]
    # A fault in a header rebuilds every file that includes it: those come last.
    faults.sort(key=lambda f: f['file'].endswith('.h'))
    tree = copy_tree(args.scratch) if not args.list else ROOT
    for fault in faults:
        text = open(os.path.join(tree, fault['file']), encoding='utf-8').read()
        fault['count'] = text.count(fault['find'])
    if args.list:
        bad = [f for f in faults if f['count'] != 1]
        for f in bad:
            print('%-40s found %d times in %s' % (f['id'], f['count'], f['file']))
        print('%d faults, %d do not apply' % (len(faults), len(bad)))
        return 1 if bad else 0

    build_dir = os.path.join(args.scratch, 'build')
    if not os.path.exists(os.path.join(build_dir, 'CMakeCache.txt')):
        subprocess.run(['cmake', '-S', tree, '-B', build_dir, '-DCMAKE_BUILD_TYPE=Release'],
                       check=True, capture_output=True)
    if not build(tree, build_dir, 3600):
        sys.exit('the unchanged tree does not build in %s' % build_dir)
    if args.prepare:
        return 0
    failing = failing_program(build_dir, args.timeout)
    if failing:
        sys.exit('the unchanged tree fails %s' % failing)

    outcome = {'caught': [], 'missed': [], 'not applied': [], 'does not build': []}
    for fault in faults:
        started = time.time()
        path = os.path.join(tree, fault['file'])
        original = open(path, encoding='utf-8').read()
        if fault['count'] != 1:
            verdict, detail = 'not applied', 'found %d times' % fault['count']
        else:
            open(path, 'w', encoding='utf-8').write(original.replace(fault['find'], fault['replace']))
            try:
                if not build(tree, build_dir, 1200):
                    verdict, detail = 'does not build', ''
                else:
                    failing = failing_program(build_dir, args.timeout)
                    verdict, detail = ('caught', 'by ' + failing) if failing else ('missed', '')
            finally:
                open(path, 'w', encoding='utf-8').write(original)
        outcome[verdict].append(fault['id'])
        print('%-44s %-14s %-24s %4.0f s' % (fault['id'], verdict, detail, time.time() - started), flush=True)

    build(tree, build_dir, 3600)  # leave the scratch build matching the tree
    tried = len(faults) - len(outcome['not applied']) - len(outcome['does not build'])
    print('summary: %d faults, %d caught, %d missed, %d not applied, %d do not build'
          % (len(faults), len(outcome['caught']), len(outcome['missed']), len(outcome['not applied']),
             len(outcome['does not build'])) + (' (%.0f%% of those run caught)' % (100.0 * len(outcome['caught']) / tried)
                                                 if tried else ''))
    for verdict in ('missed', 'not applied', 'does not build'):
        if outcome[verdict]:
            print('%s: %s' % (verdict, ' '.join(outcome[verdict])))
    return 0


if __name__ == '__main__':
    sys.exit(main())
