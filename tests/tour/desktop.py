# A virtual display with a window manager, and programs in it that are driven by real keys.
import os
import re
import subprocess
import time

children = []


class Desktop:
    # The display, from here to the end of the with statement; it ends what was started in it.

    def __enter__(self):
        read_end, write_end = os.pipe()
        start(['Xvfb', '-displayfd', str(write_end), '-screen', '0', '1024x768x24', '-nolisten', 'tcp', '-noreset'],
              pass_fds=(write_end,))
        os.close(write_end)
        with os.fdopen(read_end) as display:
            os.environ['DISPLAY'] = ':' + display.readline().strip()
        os.environ.pop('WAYLAND_DISPLAY', None)
        os.environ['QT_QPA_PLATFORM'] = 'xcb'
        start(['openbox', '--sm-disable'])
        wait(lambda: 'window id' in run('xprop', '-root', '_NET_SUPPORTING_WM_CHECK'), 'the window manager')

    def __exit__(self, *_):
        for child in reversed(children):
            child.terminate()
            child.wait()


def start(command, **options):
    children.append(subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, **options))
    return children[-1]


def run(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout.decode('utf-8', 'replace')


def wait(condition, what, seconds=30):
    # Waits until the condition holds, and gives its value.
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        value = condition()
        if value:
            return value
        time.sleep(0.02)
    raise AssertionError('%s did not come in %d s' % (what, seconds))


def window(title, other=None):
    # The window that has the focus, once its title matches and it is not the other one.
    def focused():
        window_id = run('xdotool', 'getwindowfocus').strip()
        return window_id != other and re.search(title, run('xdotool', 'getwindowname', window_id).strip()) and window_id
    return wait(focused, 'window "%s"' % title)


def gone(title):
    wait(lambda: not run('xdotool', 'search', '--onlyvisible', '--name', title), 'end of window "%s"' % title)


def keys(*names):
    run('xdotool', 'key', '--delay', '20', *names)


def type_text(text):
    run('xdotool', 'type', '--delay', '4', text)


def pixels(window_id):
    # RGB rows of a window's content.
    data = subprocess.run(['import', '-window', window_id, '-depth', '8', 'ppm:-'], stdout=subprocess.PIPE, check=True).stdout
    _, size, _, body = data.split(b'\n', 3)
    width = int(size.split()[0])
    return [body[i:i + 3 * width] for i in range(0, len(body), 3 * width)]


def shoot(path):
    # Saves the whole screen, cut down to what is on it.
    subprocess.run(['import', '-window', 'root', '-trim', '+repage', path], check=True)
