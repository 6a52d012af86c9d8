"""Types lines into a real shell, presses Tab behind each, and prints what the line has become.

    press_tab.py bash|zsh|fish SETUP <LINES

SETUP is a file that the shell reads first.
"""

import os
import pty
import re
import select
import subprocess
import sys
import tempfile
import time

PATIENCE = 60  # seconds: only something broken takes so long

COMMAND = {'bash': ['bash', '--norc', '--noprofile', '-i'], 'zsh': ['zsh', '-f', '-i']}
# Ctrl+X shows the line as the shell has it now, and clears it. The prompt says that keys are read.
SHOW = {
    'bash': r'''
bind 'set bell-style none'
show() { printf 'line<%s>' "$READLINE_LINE"; READLINE_LINE=; }
bind -x '"\C-x": show'
PS1='type-here:'
''',
    'zsh': r'''
autoload -Uz compinit
compinit -u -D
unsetopt beep
show() { print -rn "line<$BUFFER>"; BUFFER=; }
zle -N show
bindkey '^X' show
bindkey '^I' complete-word
PS1='type-here:'
''',
}


class Shell:
    def __init__(self, name, setup):
        self.seen = ''
        self.terminal, slave = pty.openpty()
        environment = dict(os.environ, TERM='dumb', COLUMNS='300', LINES='50')
        self.process = subprocess.Popen(COMMAND[name], stdin=slave, stdout=slave, stderr=slave, env=environment,
                                        start_new_session=True)
        os.close(slave)
        with tempfile.NamedTemporaryFile('w') as settings:
            with open(setup) as file:
                settings.write(file.read() + SHOW[name])
            settings.flush()
            self.send(f'. {settings.name}\n')
            self.read_until('type-here:')

    def send(self, keys):
        os.write(self.terminal, keys.encode())

    def read_until(self, pattern):
        end = time.monotonic() + PATIENCE
        while True:
            found = re.search(pattern, self.seen)
            if found:
                self.seen = self.seen[found.end():]
                return found
            if time.monotonic() > end or not select.select([self.terminal], [], [], 1)[0]:
                if time.monotonic() > end:
                    raise TimeoutError(f'{pattern} is not in {self.seen!r}')
                continue
            self.seen += os.read(self.terminal, 65536).decode(errors='replace')

    def complete(self, line):
        self.send(line + '\t\x18')
        return self.read_until('line<(.*?)>').group(1)

    def close(self):
        self.process.kill()
        self.process.wait()


def complete_in_fish(setup, line):
    answer = subprocess.run(['fish', '--no-config', '-C', f'source {setup}', '-c', 'complete -C $argv[1]', line],
                            capture_output=True, text=True, check=True).stdout
    # It tells the words; a single one would stand in the line, and without one the line would stay.
    words = [each.split('\t')[0] for each in answer.splitlines()]
    if not words:
        return line
    last_word = re.search(r'(\\.|[^ \\])*$', line)
    escaped = [word.replace(' ', '\\ ') for word in words]
    return line[:last_word.start()] + escaped[0] if len(words) == 1 else f'{len(words)} words: {words}'


def main():
    name, setup = sys.argv[1:]
    lines = sys.stdin.read().splitlines()
    if name == 'fish':
        for line in lines:
            print(complete_in_fish(setup, line))
        return
    shell = Shell(name, setup)
    try:
        for line in lines:
            print(shell.complete(line))
    finally:
        shell.close()


main()
