#!/usr/bin/env python3
"""Fails and kills the built program at every file call of every save, one call at a time.

Afterwards there is the whole old or the whole new file; where the program lives, it has said that something failed; and
the next start comes up by itself. Prints each miss, and at the end how many points were held.

    faults.py BUILD_FOLDER [SCENARIO...]
"""

import multiprocessing
import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import tracer  # noqa: E402

BUILD = os.path.abspath(sys.argv[1])
PROGRAM = os.path.join(BUILD, 'gatehouse')
DATA = os.path.join(os.path.dirname(os.path.abspath(__file__)), '../../data')
TIME_LIMIT = 40

DOCUMENT = '\r\n'.join([
    'mods currmod "Quake 3: Arena"', 'seta sv_hostname "Old Yard"', 'seta g_gametype "0"', 'base cfgtype "{mode}"',
    'maps q3dm1 "Arena Gate"', 'srvr langame "1"', 'srvr port "27999"', 'bind W|W "Zoom in|kw"', '']).encode()
ALIASES = b'#def "Zoom"\r\n#key "in"\r\nset z "cg_fov 20"\r\nbind #01 vstr z\r\n#end\r\n'


def program_path(path):
    return 'C:' + path.replace('/', '\\')


class World:
    """A folder with a home, a program folder, a game, and the options of a program that was used before."""

    def __init__(self, root, mode, first_start=False, display=None):
        self.root, self.display = root, display
        self.app, self.game = f'{root}/app', f'{root}/game'
        self.options = f'{root}/config/gatehouse/gatehouse.ini'
        self.document = f'{root}/app/war.ghc'
        for folder in ('config/gatehouse', 'cache', 'home', 'runtime', 'game/baseq3'):
            os.makedirs(f'{root}/{folder}')
        os.chmod(f'{root}/runtime', 0o700)
        shutil.copy(f'{BUILD}/practice/quake3.exe', f'{self.game}/quake3.exe')
        self.put('game/baseq3/q3config.cfg', b'seta name "Old Hand"\r\n' * 50)
        if first_start:
            return
        shutil.copytree(DATA, self.app)
        os.makedirs(f'{self.app}/levelshots')
        brought = sorted(os.path.relpath(os.path.join(at, name), DATA) for at, _, names in os.walk(DATA) for name in names)
        self.put('app/.brought', ''.join(name + '\n' for name in brought).encode())
        self.put('app/aliases.txt', ALIASES)
        self.put('app/usermaps.txt', b'MYMAP A Map of Mine\r\n')
        self.put('app/usermdls.txt', b'')
        self.put('app/default.ghs', b'// server list\r\nMine|P|9999|?|?|Q3CTF1|127.0.0.1:27961|secret\r\n')
        self.put('app/war.ghc', DOCUMENT.replace(b'{mode}', str(mode).encode()))
        for name in ('gatehouse.cfg', 'gatehouse.bat', 'ghaliases.cfg'):
            self.put(f'game/baseq3/{name}', b'the file of an earlier run\r\n' * 20)
        values = {'exepath': program_path(f'{self.game}/quake3.exe'), 'basedir': program_path(f'{self.game}/'),
                  'ghcdir': program_path(f'{self.app}/'), 'lastcfg': program_path(self.document),
                  'lastsvr': 'default.ghs', 'startwith': '0', 'runoptions': '2', 'overwrite': '0', 'pingwait': '1',
                  'benchwait': '5', 'staleaction': '0', 'showconsole': '0', 'loglevel': '2', 'buffsize': '4096',
                  'keeplogs': '5', 'democount': '3', 'extracmdline': '', 'ghversion': '00.03.03'}
        lines = ''.join(f'{key}="{text}"\n'.replace('\\', '\\\\') for key, text in sorted(values.items()))
        self.put('config/gatehouse/gatehouse.ini', ('[config]\n' + lines).encode())

    def put(self, name, content):
        with open(f'{self.root}/{name}', 'wb') as file:
            file.write(content)

    def environment(self):
        result = {key: value for key, value in os.environ.items()
                  if key not in ('DISPLAY', 'WAYLAND_DISPLAY', 'QT_QPA_PLATFORM', 'COMSPEC')}
        result.update(LANG='C.UTF-8', HOME=f'{self.root}/home', XDG_CONFIG_HOME=f'{self.root}/config',
                      XDG_CACHE_HOME=f'{self.root}/cache', XDG_RUNTIME_DIR=f'{self.root}/runtime',
                      GATEHOUSE_HOME=self.app, PRACTICE_LIFETIME='1', QT_ACCESSIBILITY='0')
        if self.display:
            result.update(DISPLAY=self.display, QT_QPA_PLATFORM='xcb', QT_XCB_NO_XI2='1')
        return result

    def saved(self, names):
        contents = {}
        for name in names:
            try:
                with open(f'{self.root}/{name}', 'rb') as file:
                    contents[name] = file.read()
            except FileNotFoundError:
                contents[name] = None
        return contents

    def strays(self):
        return [os.path.join(at, name) for at, _, names in os.walk(self.root) for name in names if name.endswith('.new')]


class Person(multiprocessing.Process):
    """Works the window by its titles until the program has gone, and keeps what boxes have said."""

    def __init__(self, world, plan):
        super().__init__(daemon=True)
        self.world, self.plan = world, plan

    def tool(self, *words):
        done = subprocess.run(['xdotool', *words], env={**os.environ, 'DISPLAY': self.world.display},
                              capture_output=True, text=True)
        return done.stdout.split('\n')[:-1]

    def titles(self):
        found = []
        for window in self.tool('search', '--onlyvisible', '--name', '.'):
            name = self.tool('getwindowname', window)
            if name and name[0]:
                found.append((window, name[0]))
        return found

    def run(self):
        # A box stands in front of what asked for it: the newest window is answered.
        said, done, end = [], 0, time.time() + TIME_LIMIT
        while time.time() < end:
            windows = [(window, title) for window, title in self.titles() if not title.lower().startswith('openbox')]
            answered = False
            for window, title in reversed(windows):
                answer = next((keys for pattern, keys in BOXES.items() if re.search(pattern, title)), None)
                if answer is None:
                    continue
                if title in TROUBLE:
                    said.append(title)
                    with open(f'{self.world.root}/said', 'a') as file:
                        file.write(title + '\n')
                self.press(window, answer)
                answered = True
                break
            main = [window for window, title in windows if title.lower().endswith('.ghc')]
            if not answered and main and done < len(self.plan):
                self.press(main[0], self.plan[done])
                done += 1
            time.sleep(0.1)

    def press(self, window, keys):
        self.tool('windowactivate', '--sync', window)
        time.sleep(0.1)
        for key in keys:
            if key == 'SIGTERM':
                os.kill(int(self.tool('getwindowpid', window)[0]), signal.SIGTERM)
            elif key.startswith('type '):
                self.tool('type', '--delay', '4', key[5:].replace('@GAME@', self.world.game))
            else:
                self.tool('key', '--clearmodifiers', key)
        time.sleep(0.15)


TROUBLE = ('Options', 'User Maps', 'Save Server List', 'Gatehouse', 'Critical Error', 'Error')
BOXES = {'^Inital Setup$': ['alt+y'], '^Where is quake3.exe.$': ['ctrl+a', 'type @GAME@/quake3.exe', 'Return'],
         '^First Time Setup$': ['Return'], '^User (Map|Model) Search$': ['Return'], '^Save Config$': ['Return'], '^Exit Gatehouse$': ['alt+y'],
         'New IP Address': ['Escape'], '^(' + '|'.join(TROUBLE) + ')$': ['Return']}

GAME_FILES = ['game/baseq3/gatehouse.cfg', 'game/baseq3/gatehouse.bat', 'game/baseq3/ghaliases.cfg']
OPTIONS = 'config/gatehouse/gatehouse.ini'
BROUGHT = ['app/.brought', 'app/aliases.txt', 'app/default.ghs', 'app/ghnoshot.jpg', 'app/mods/00-baseq3.ghm']

# Name: first start or not, mode, needs a display, what a person does, files that are saved.
SCENARIOS = {
    'run': (False, 1, None, GAME_FILES + [OPTIONS, 'app/usermaps.txt']),
    'fill': (True, 0, None, BROUGHT),
    'first': (True, 0, [['alt+F4']], [OPTIONS, 'app/default.ghc', 'game/baseq3/q3backup.cfg']),
    'window': (False, 0, [['F12'], ['ctrl+s'], ['Insert'], ['alt+F4']],
               [OPTIONS, 'app/war.ghc', 'app/default.ghs', 'app/usermaps.txt']),
    'rescue': (False, 0, [['Insert'], ['SIGTERM']], ['app/rescue.ghs', 'app/rescue.txt']),
}


def stem(path):
    """The saved file that a path belongs to: its own, or that of a file beside it."""
    found = re.match(r'(.*)/\.(.+)\.\d+-\d+\.new$', path)
    return f'{found[1]}/{found[2]}' if found else path


def play(scenario, fault, display, root, versions=None):
    first, mode, plan, names = SCENARIOS[scenario]
    world = World(root, mode, first, display if plan is not None else None)
    before = world.saved(names)
    wanted = {f'{root}/{name}' for name in names}
    folders = {os.path.dirname(path) for path in wanted}

    def counted(path):
        # A file without a name shows its folder and a number; folders are synced.
        return stem(path) in wanted or path in folders or (os.path.dirname(path) in folders and
                                                           os.path.basename(path).startswith('#'))

    command = [PROGRAM] if plan is not None or scenario == 'fill' else [PROGRAM, 'r ' + program_path(world.document)]
    person = Person(world, plan) if plan is not None else None
    if person:
        person.start()
    run = tracer.Run(command, world.environment(), root, counted, fault, root)
    if versions is not None:
        # A file may be saved more than once in a run: each of its contents is a whole one.
        run.renamed = lambda path: [versions[name].append(neutral(content, world))
                                    for name, content in world.saved(names).items() if path.endswith(name)]
    signal.alarm(TIME_LIMIT)
    others = {person.pid: None} if person else {}
    try:
        run.wait(others)
    except TimeoutError:
        os.kill(run.main, signal.SIGKILL)
        os.waitpid(run.main, tracer.WALL)
        run.status = 'hung'
    finally:
        signal.alarm(0)
        if person:
            os.kill(person.pid, signal.SIGKILL)
    return world, run, before, world.saved(names)


def outcome(world, run):
    """All that somebody could notice of a run: its boxes of trouble, its exit status and its lines."""
    contents = world.saved(['said', 'stderr'])
    return contents['said'], run.status, neutral(contents['stderr'], world)


def fill_again(new, world):
    """What is wrong with a program folder once the program was started again."""
    subprocess.run([PROGRAM], env=world.environment(), cwd=world.root, capture_output=True, timeout=TIME_LIMIT,
                   stdin=subprocess.DEVNULL)
    lacking = [name for name, content in world.saved(new).items() if neutral(content, world) != new[name][-1]]
    return f'the next start does not bring {", ".join(lacking)}' if lacking else ''


def next_start(world):
    """What is wrong with the start after this one; empty when it comes up by itself."""
    environment = world.environment()
    for key in ('DISPLAY', 'QT_QPA_PLATFORM'):
        environment.pop(key, None)
    began = time.time()
    document = world.document if os.path.exists(world.document) else f'{world.app}/default.ghc'
    if not os.path.exists(world.options) or b'exepath' not in open(world.options, 'rb').read():
        return ''  # a first start still, whole: nothing was stored
    # Without a document an ordinary start writes one; its window stays, unseen.
    command = [PROGRAM, 'r ' + program_path(document)] if os.path.exists(document) else ['timeout', '3', PROGRAM]
    done = subprocess.run(command, env=environment, cwd=world.root, capture_output=True, text=True, timeout=TIME_LIMIT,
                          stdin=subprocess.DEVNULL)
    # A run-and-leave without a map or a server has no run, which is no fault of the files.
    if "can't go on" in done.stderr or 'Critical Error' in done.stderr or time.time() - began > 10 or \
            not os.path.exists(document):
        return f'the next start: {done.stderr.strip()[:200]} ({time.time() - began:.0f} s)'
    return ''


def judge(scenario, recorded, world, run, before, after):
    new, usual = recorded
    misses = []
    for name, content in after.items():
        # What a first start or a save makes differs in nothing from run to run but the paths of its folder.
        if content != before[name] and neutral(content, world) not in new[name]:
            misses.append(f'{name} is neither the old nor the new one ({len(content or b"")} bytes)')
    if run.status == 'hung':
        misses.append('it hangs')
    elif not run.killed:
        unsaved = [name for name, content in after.items() if neutral(content, world) != new[name][-1]]
        # Maps that the file holds already are not lost.
        unsaved = [name for name in unsaved if name != 'app/usermaps.txt' or b'MYMAP' not in (after[name] or b'MYMAP')]
        if unsaved and outcome(world, run) == usual:
            misses.append(f'not a word about {", ".join(unsaved)}')
        if world.strays():
            misses.append(f'left behind: {world.strays()[0]}')
    misses += [text for text in [fill_again(new, world) if scenario == 'fill' else next_start(world)] if text]
    return misses


def neutral(content, world):
    if content is None:
        return None
    for path in (world.root, program_path(world.root), program_path(world.root).lower(),
                 program_path(world.root).replace('\\', '\\\\')):
        content = content.replace(path.encode(), b'@ROOT@')
    content = content.replace(program_path(world.root)[2:].encode(), b'@ROOT@')
    content = re.sub(rb'\d{4}-\d\d-\d\d \d\d:\d\d:\d\d', b'@TIME@', content)
    # Options are a set: a key that was refused at first comes in later.
    return b'\n'.join(sorted(content.split(b'\n'))) if content.startswith(b'[config]') else content


def attempt(scenario, fault, recorded, display, scratch):
    root = tempfile.mkdtemp(dir=scratch)
    try:
        world, run, before, after = play(scenario, fault, display, root)
        return judge(scenario, recorded, world, run, before, after)
    finally:
        shutil.rmtree(root, ignore_errors=True)


def attempt_with_hands(scenario, fault, recorded, display, scratch):
    """On a busy machine a key may be lost on its way to a window: what a person's hands did wrong is done again."""
    misses = attempt(scenario, fault, recorded, display, scratch)
    if misses and SCENARIOS[scenario][2] is not None:
        misses = attempt(scenario, fault, recorded, display, scratch)
    return misses


def record(scenario, display, scratch):
    root = tempfile.mkdtemp(dir=scratch)
    versions = {name: [] for name in SCENARIOS[scenario][3]}
    world, run, _, after = play(scenario, None, display, root, versions)
    stderr = open(f'{root}/stderr').read()
    new = {name: versions[name] + [neutral(content, world)] for name, content in after.items()}
    usual = outcome(world, run)
    missing = [name for name, content in after.items() if content is None]
    calls = [(name, os.path.relpath(path, root)) for name, path in run.calls]
    shutil.rmtree(root, ignore_errors=True)
    if missing or (scenario != 'fill' and run.status != 0):
        sys.exit(f'{scenario}: without a fault it ends with {run.status}, {missing} not saved: {stderr}')
    return calls, (new, usual)


def faults_of(calls):
    for number, (name, _) in enumerate(calls, 1):
        yield number, 'kill'
        if name == 'close':
            yield number, 'EIO'
            continue
        for kind in ('ENOSPC', 'EIO'):
            yield number, kind
        if name == 'write':
            yield number, 'short'


def alarm(_signal, _frame):
    raise TimeoutError


def start_display():
    quiet = {'stdout': subprocess.DEVNULL, 'stderr': subprocess.DEVNULL}
    reading, writing = os.pipe()
    server = subprocess.Popen(['Xvfb', '-displayfd', str(writing), '-screen', '0', '1280x1024x24', '-nolisten', 'tcp'],
                              pass_fds=[writing], **quiet)
    os.close(writing)
    with os.fdopen(reading) as told_number:
        display = f':{told_number.readline().strip()}'
    manager = subprocess.Popen(['openbox'], env={**os.environ, 'DISPLAY': display}, **quiet)
    time.sleep(1)
    return display, [manager, server]


def work(tasks, results, scratch, needs_display):
    signal.signal(signal.SIGALRM, alarm)
    display, helpers = start_display() if needs_display else (None, [])
    try:
        while (task := tasks.get()) is not None:
            scenario, fault, whole = task
            try:
                result = record(scenario, display, scratch) if fault is None else \
                    attempt_with_hands(scenario, fault, whole, display, scratch)
            except (Exception, SystemExit) as error:  # noqa: BLE001 - told as a miss
                result = error if fault is None else [f'the test itself: {error!r}']
            results.put((scenario, fault, result))
    finally:
        for helper in helpers:
            helper.terminate()


def main():
    chosen = sys.argv[2:] or list(SCENARIOS)
    scratch = tempfile.mkdtemp(prefix='gatehouse-faults.')
    held = missed = 0
    workers = int(os.environ.get('FAULT_WORKERS', os.cpu_count() or 2))
    tasks, results = multiprocessing.Queue(), multiprocessing.Queue()
    needs_display = any(SCENARIOS[name][2] is not None for name in chosen)
    crew = [multiprocessing.Process(target=work, args=(tasks, results, scratch, needs_display))
            for _ in range(workers)]
    for one in crew:
        one.start()
    try:
        for scenario in chosen:
            tasks.put((scenario, None, None))
            recorded = results.get()[2]
            if isinstance(recorded, BaseException):
                print(recorded)
                missed += 1
                continue
            calls, whole = recorded
            points = list(faults_of(calls))
            began = time.time()
            for point in points:
                tasks.put((scenario, point, whole))
            good = 0
            for _ in points:
                _, (number, kind), misses = results.get()
                good += not misses
                for miss in misses:
                    name, path = calls[number - 1]
                    print(f'  {scenario}: {kind} at call {number} ({name} {path}): {miss}', flush=True)
            print(f'{scenario}: {len(calls)} calls, {len(points)} points tried, {good} held '
                  f'({time.time() - began:.0f} s)', flush=True)
            held += good
            missed += len(points) - good
    finally:
        for _ in crew:
            tasks.put(None)
        for one in crew:
            one.join(10)
        shutil.rmtree(scratch, ignore_errors=True)
    print(f'{held} passed, {missed} failed')
    return missed != 0


if __name__ == '__main__':
    sys.exit(main())
