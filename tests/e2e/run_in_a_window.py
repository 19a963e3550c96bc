#!/usr/bin/python3
"""Runs the runner without a terminal: its window shows how far it is and cancels, and a failure stays in it until it was
seen, or the runner is told to end.

    run_in_a_window.py RUNNER FOLDER
"""

import os
import subprocess
import sys
import time

import desktop


class Runner(desktop.Program):
    def __init__(self, binary, script, folder):
        self.log = open(os.path.join(folder, "log"), "w+b")
        environment = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", XDG_CONFIG_HOME=folder, LC_ALL="C.UTF-8")
        self.process = subprocess.Popen([binary, "/s", script, "/x"], env=environment, stdin=subprocess.DEVNULL,
                                        stdout=self.log, stderr=self.log)
        self.window = desktop.wait_for("the window", lambda: self.window_id("^Tessaly Cuewright$"))
        desktop.focus(self.window)

    def application(self):
        """The window is a process of its own."""
        bus = desktop.pyatspi.Registry.getDesktop(0)
        for i in range(bus.childCount):
            child = bus.getChildAtIndex(i)
            if child is not None and child.name == "tessaly-cuewright":
                return child
        return None

    def ended(self):
        status = self.process.wait(20)
        self.log.seek(0)
        return status, self.log.read().decode()


def write(folder, name, *lines):
    path = os.path.join(folder, name)
    with open(path, "w", encoding="utf-8") as file:
        file.write("".join("VirtualDub.%s;\r\n" % line for line in lines))
    return path


def main():
    binary, folder = sys.argv[1:3]
    film = os.path.join(folder, "film.avi")
    subprocess.run(["ffmpeg", "-y", "-nostdin", "-v", "error", "-f", "lavfi", "-i", "testsrc2=s=1280x720:r=25:d=90",
                    "-c:v", "mpeg4", "-q:v", "8", film], check=True)
    long_run = write(folder, "long.vcf", 'Open("%s",0,0)' % film, "video.SetCompression(0x64697678,0,10000,0)",
                     'SaveAVI("%s")' % os.path.join(folder, "out file.avi"))
    before = set(os.listdir(folder))
    runner = Runner(binary, long_run, folder)
    desktop.wait_for("the file in work", lambda: runner.find("label", "out file.avi"))
    desktop.wait_for("the time left", lambda: any(node.name.startswith("Time left: ") for node in runner.all("label")))
    bar = desktop.wait_for("the bar", lambda: runner.find("progress bar"))
    desktop.wait_for("the bar's way", lambda: bar.queryValue().currentValue > 0)
    desktop.focus(runner.window)
    desktop.key("Escape")
    status, log = runner.ended()
    assert status == 3, (status, log)
    assert set(os.listdir(folder)) - before <= {"log"}, os.listdir(folder)

    runner = Runner(binary, write(folder, "bad.vcf", "Dance()"), folder)
    desktop.wait_for("the failure", lambda: any(
        'bad.vcf:1: the command "VirtualDub.Dance" isn\'t known' in node.name for node in runner.all("label")))
    assert runner.process.poll() is None, "the failure was not waited for"
    desktop.focus(runner.window)
    desktop.key("Return")
    status, log = runner.ended()
    assert status == 1, (status, log)
    assert "isn't known" in log, log

    # Nobody has to see a failure before a session can end.
    runner = Runner(binary, os.path.join(folder, "bad.vcf"), folder)
    desktop.wait_for("the failure", lambda: any("isn't known" in node.name for node in runner.all("label")))
    began = time.monotonic()
    runner.process.terminate()
    status, log = runner.ended()
    assert status == 1 and time.monotonic() - began < 2, (status, log)
    desktop.wait_for("the window to go", lambda: not runner.window_id("^Tessaly Cuewright$"))


main()
