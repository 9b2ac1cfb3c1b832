"""Runs a program, counts its file calls below some folders, and lets one of them fail, be short, or be its last.

For Linux on x86-64: the calls are seen through ptrace(2), registers as in <sys/user.h>, numbers as in
<asm/unistd_64.h>. Threads are followed; programs that are started in turn are not.
"""

import ctypes
import errno
import os
import signal

TRACEME, GETREGS, SETREGS, SYSCALL, DETACH, SETOPTIONS = 0, 12, 13, 24, 17, 0x4200
OPTIONS = 0x1 | 0x8 | 0x100000  # syscall stops are marked, threads are followed, everything ends with the tracer
WALL = 0x40000000
AT_FDCWD = -100
O_WRITING = os.O_WRONLY | os.O_RDWR | os.O_CREAT

REGISTERS = ('r15 r14 r13 r12 rbp rbx r11 r10 r9 r8 rax rcx rdx rsi rdi orig_rax rip cs eflags rsp ss fs_base gs_base '
             'ds es fs gs').split()


class Registers(ctypes.Structure):
    _fields_ = [(name, ctypes.c_ulonglong) for name in REGISTERS]


# How each call names its file: the number of a descriptor, a path, or a path below a descriptor's folder.
FD, PATH, AT = 'fd', 'path', 'at'
CALLS = {
    1: ('write', FD, 'rdi', None), 18: ('pwrite', FD, 'rdi', None), 20: ('writev', FD, 'rdi', None),
    3: ('close', FD, 'rdi', None), 74: ('fsync', FD, 'rdi', None), 75: ('fdatasync', FD, 'rdi', None),
    77: ('ftruncate', FD, 'rdi', None), 91: ('fchmod', FD, 'rdi', None),
    2: ('open', PATH, 'rdi', None), 85: ('creat', PATH, 'rdi', None), 82: ('rename', PATH, 'rsi', None),
    86: ('link', PATH, 'rsi', None), 87: ('unlink', PATH, 'rdi', None), 83: ('mkdir', PATH, 'rdi', None),
    90: ('chmod', PATH, 'rdi', None), 76: ('truncate', PATH, 'rdi', None),
    257: ('open', AT, 'rdi', 'rsi'), 258: ('mkdir', AT, 'rdi', 'rsi'), 263: ('unlink', AT, 'rdi', 'rsi'),
    264: ('rename', AT, 'rdx', 'r10'), 316: ('rename', AT, 'rdx', 'r10'), 265: ('link', AT, 'rdx', 'r10'),
}

libc = ctypes.CDLL(None, use_errno=True)
libc.ptrace.argtypes = [ctypes.c_long, ctypes.c_long, ctypes.c_void_p, ctypes.c_void_p]
libc.ptrace.restype = ctypes.c_long


def ptrace(request, pid, address=None, data=None):
    if libc.ptrace(request, pid, address, data) < 0:
        raise OSError(ctypes.get_errno(), os.strerror(ctypes.get_errno()))


def signed(number):
    return ctypes.c_int(number & 0xFFFFFFFF).value


def text_at(pid, address):
    with open(f'/proc/{pid}/mem', 'rb', buffering=0) as memory:
        memory.seek(address)
        return memory.read(4096).split(b'\0')[0].decode(errors='surrogateescape')


def behind(pid, descriptor):
    try:
        return os.readlink(f'/proc/{pid}/fd/{descriptor}').removesuffix(' (deleted)')
    except OSError:
        return ''


def file_of(pid, registers, call):
    """Path of the file that a call is about; empty when it is about none, or only reads."""
    name, how, first, second = call
    if how == FD:
        path = behind(pid, signed(getattr(registers, first)))
        if name != 'close':
            return path
        try:
            with open(f'/proc/{pid}/fdinfo/{signed(getattr(registers, first))}') as info:
                flags = int([line for line in info if line.startswith('flags')][0].split()[1], 8)
        except (OSError, IndexError):
            return ''
        return path if flags & (os.O_WRONLY | os.O_RDWR) else ''
    path = text_at(pid, getattr(registers, second if how == AT else first))
    if name == 'open':
        flags = registers.rdx if how == AT else registers.rsi
        if not flags & O_WRITING:
            return ''
    folder = signed(getattr(registers, first)) if how == AT else AT_FDCWD
    if not path.startswith('/'):
        path = os.path.join(os.readlink(f'/proc/{pid}/cwd') if folder == AT_FDCWD else behind(pid, folder), path)
    return os.path.normpath(path)


class Run:
    """One run. `fault` is the number of the call that is meant, from 1, and what becomes of it: an errno name, `short`
    (half of a write, and no room for what follows) or `kill`. `calls` lists all that were counted; `renamed` is called
    with a path that a file has just been given."""

    def __init__(self, command, environment, folder, counted, fault=None, output=None):
        self.counted, self.calls, self.fault = counted, [], fault
        self.status, self.killed, self.full = None, False, None
        self.renamed, self.renaming = lambda path: None, {}
        self.main = os.fork()
        if self.main == 0:
            self.become(command, environment, folder, output)
        os.waitpid(self.main, 0)
        ptrace(SETOPTIONS, self.main, None, OPTIONS)
        ptrace(SYSCALL, self.main)

    @staticmethod
    def become(command, environment, folder, output):
        try:
            os.chdir(folder)
            os.dup2(os.open('/dev/null', os.O_RDONLY), 0)
            for number, name in ((1, 'stdout'), (2, 'stderr')):
                os.dup2(os.open(os.path.join(output, name), os.O_WRONLY | os.O_CREAT | os.O_TRUNC, 0o600), number)
            libc.ptrace(TRACEME, 0, None, None)
            os.execvpe(command[0], command, environment)
        finally:
            os._exit(126)

    def wait(self, others=None):
        """Follows the program to its end. Other children that end meanwhile go into `others` with their status."""
        inside, answers = {}, {}
        while self.status is None:
            pid, status = os.waitpid(-1, WALL)
            if os.WIFEXITED(status) or os.WIFSIGNALED(status):
                if pid == self.main:
                    self.status = os.waitstatus_to_exitcode(status)
                elif others is not None and pid in others:
                    others[pid] = status
                continue
            number = os.WSTOPSIG(status)
            passed_on = 0
            if number == signal.SIGTRAP | 0x80:
                entering = not inside.get(pid, False)
                inside[pid] = entering
                try:
                    self.enter(pid, answers) if entering else self.leave(pid, answers)
                except OSError:
                    pass  # it has gone meanwhile
            elif number not in (signal.SIGTRAP, signal.SIGSTOP):
                passed_on = number
            try:
                ptrace(SYSCALL, pid, None, passed_on)
            except OSError:
                pass
        return self.status

    def enter(self, pid, answers):
        registers = Registers()
        ptrace(GETREGS, pid, None, ctypes.byref(registers))
        call = CALLS.get(registers.orig_rax)
        if not call:
            return
        path = file_of(pid, registers, call)
        if not path or not self.counted(path):
            return
        if self.full and call[0] in ('write', 'pwrite', 'writev') and os.path.dirname(path) == self.full:
            return self.refuse(pid, registers, answers, errno.ENOSPC)
        self.calls.append((call[0], path))
        if call[0] == 'rename':
            self.renaming[pid] = path
        if not self.fault or len(self.calls) != self.fault[0]:
            return
        kind = self.fault[1]
        if kind == 'kill':
            self.killed = True
            os.kill(self.main, signal.SIGKILL)
        elif kind == 'short':
            self.full = os.path.dirname(path)
            registers.rdx //= 2
            ptrace(SETREGS, pid, None, ctypes.byref(registers))
        else:
            self.refuse(pid, registers, answers, getattr(errno, kind))

    @staticmethod
    def refuse(pid, registers, answers, error):
        answers[pid] = error
        registers.orig_rax = 0xFFFFFFFFFFFFFFFF
        ptrace(SETREGS, pid, None, ctypes.byref(registers))

    def leave(self, pid, answers):
        if pid in self.renaming:
            self.renamed(self.renaming.pop(pid))
        error = answers.pop(pid, None)
        if error is None:
            return
        registers = Registers()
        ptrace(GETREGS, pid, None, ctypes.byref(registers))
        registers.rax = (1 << 64) - error
        ptrace(SETREGS, pid, None, ctypes.byref(registers))
