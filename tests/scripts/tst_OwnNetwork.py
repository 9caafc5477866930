#!/usr/bin/env python3
"""How scripts/own-network.sh behaves where the system gives no networks: called with an `unshare` that refuses.

    tst_OwnNetwork.py SCRIPT

To be run in a network of its own, which is the common one of the scripts under test.
"""
import os
import pathlib
import socket
import subprocess
import sys
import tempfile
import time
import unittest

SCRIPT = pathlib.Path()
NOBODY = 65534


def can_become_nobody():
    """Not in a user namespace of an ordinary user's."""
    if os.getuid() != 0:
        return False
    rows = [[int(number) for number in line.split()] for line in open("/proc/self/uid_map", encoding="ascii")]
    return any(first <= NOBODY < first + count for first, _, count in rows)


class OwnNetwork(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        os.chmod(self.folder.name, 0o755)
        refusing = pathlib.Path(self.folder.name) / "unshare"
        refusing.write_text("#!/bin/sh\nexit 1\n")
        refusing.chmod(0o755)

    def start(self, *arguments, user=None):
        environment = dict(os.environ, PATH=f"{self.folder.name}:{os.environ['PATH']}")
        return subprocess.Popen([SCRIPT, *arguments], env=environment, user=user, text=True, stdout=subprocess.PIPE,
                                stderr=subprocess.STDOUT)

    def run_script(self, *arguments, user=None):
        process = self.start(*arguments, user=user)
        output = process.communicate(timeout=60)[0]
        return process.returncode, output

    def test_commands_in_the_common_network_follow_one_another(self):
        notes = pathlib.Path(self.folder.name) / "notes"
        command = ["sh", "-c", f"echo begin >>{notes}; sleep 0.3; echo end >>{notes}"]
        processes = [self.start(*command) for _ in range(3)]
        for process in processes:
            self.assertIn("own-network.sh: begins in the common network", process.communicate(timeout=60)[0])
            self.assertEqual(process.returncode, 0)
        self.assertEqual(notes.read_text().split(), ["begin", "end"] * 3)

    def test_what_a_command_leaves_behind_does_not_hold_up_the_next(self):
        self.assertEqual(self.run_script("sh", "-c", "sleep 30 >/dev/null 2>&1 &")[0], 0)
        begin = time.monotonic()
        self.assertEqual(self.run_script("true")[0], 0)
        self.assertLess(time.monotonic() - begin, 20)

    def test_a_port_that_another_program_holds_is_named(self):
        holders = (("UDP 7777", socket.SOCK_DGRAM, "0.0.0.0", 7777), ("UDP 9999", socket.SOCK_DGRAM, "127.0.0.10", 9999),
                   ("TCP 23", socket.SOCK_STREAM, "127.0.0.10", 23), ("TCP 2121", socket.SOCK_STREAM, "0.0.0.0", 2121))
        for name, kind, address, port in holders:
            with self.subTest(name), socket.socket(socket.AF_INET, kind) as holder:
                holder.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
                holder.bind((address, port))
                if kind == socket.SOCK_STREAM:
                    holder.listen()
                code, output = self.run_script("echo", "was run")
                self.assertEqual(code, 70)
                self.assertIn("port clash: another program in this network", output)
                self.assertTrue(output.rstrip().endswith(f" has {name}"), output)
                self.assertNotIn("was run", output)

    def test_the_exit_code_is_the_commands(self):
        self.assertEqual(self.run_script("--port-23", "--cage", "sh", "-c", "exit 5")[0], 5)

    @unittest.skipUnless(can_become_nobody(), "takes root to be somebody else")
    def test_an_ordinary_user_without_namespaces(self):
        cases = ((("--cage",), "the cage of the emulated camera's shell takes root or user namespaces"),
                 (("--port-23", "--cage"), "the cage of the emulated camera's shell takes root or user namespaces"),
                 (("--port-23",), "an ordinary user may not listen on TCP port 23"))
        for needs, reason in cases:
            with self.subTest(needs):
                self.assertEqual(self.run_script(*needs, "echo", "was run", user=NOBODY),
                                 (77, f"own-network.sh: cannot be run here: {reason}\n"))
        code, output = self.run_script("echo", "was run", user=NOBODY)
        self.assertEqual(code, 0)
        self.assertIn("was run", output)


if __name__ == "__main__":
    SCRIPT = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main()
