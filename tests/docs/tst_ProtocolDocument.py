#!/usr/bin/env python3
"""Takes docs/protocol.md at its word: runs the minimal camera and the minimal client that it prints, with its sample
settings, against the real station and the emulated camera, and holds its tables against the byte vectors.

    tst_ProtocolDocument.py --project FOLDER --station PROGRAM --emulator PROGRAM --work FOLDER [unittest options]

Binds the station's and the camera's fixed ports, so it needs a network of its own.
"""
import argparse
import os
import pathlib
import re
import shutil
import signal
import struct
import subprocess
import sys
import types
import unittest

import protocolVectors

CAMERA = '127.0.0.10'
LIMIT = 60  # seconds, for what takes two
arguments = None


def document():
    return (arguments.project / 'docs' / 'protocol.md').read_text(encoding='utf-8')


def code_blocks(language):
    return re.findall(rf'^```{language}\n(.*?)^```$', document(), re.MULTILINE | re.DOTALL)


def extracted(name):
    """A program that the document prints, as a file."""
    for block in code_blocks('python'):
        if block.startswith(f'# {name} '):
            path = arguments.work / name
            path.write_text(block, encoding='utf-8')
            return path
    raise AssertionError(f'docs/protocol.md prints no {name}')


def imported(name):
    path = extracted(f'{name}.py')
    module = types.ModuleType(name)
    exec(compile(path.read_bytes(), path, 'exec'), module.__dict__)
    return module


class Running:
    """A program that says "ready" in its first line; ended with the block."""

    def __init__(self, *command):
        self.command = command

    def __enter__(self):
        self.process = subprocess.Popen(self.command, stdout=subprocess.PIPE, text=True)
        line = self.process.stdout.readline()
        if 'ready' not in line:
            self.__exit__()
            raise AssertionError(f'{self.command[0]} does not get ready: {line}')
        return self

    def __exit__(self, *_):
        self.process.send_signal(signal.SIGTERM)
        self.process.wait(LIMIT)
        self.process.stdout.close()


def minimal_camera():
    return Running(sys.executable, '-B', str(extracted('minimal_camera.py')), CAMERA)


def emulated_camera():
    return Running(arguments.emulator, '--address', CAMERA, '--no-shell', '--no-ftp')


def client_output():
    return subprocess.run([sys.executable, '-B', extracted('minimal_client.py'), CAMERA], stdout=subprocess.PIPE,
                          text=True, timeout=LIMIT, check=True).stdout.splitlines()


# What each command's reply data hold, by the document's tables: struct format, and names with their place in it.
BATTERY = 'charge voltage current temperature minutesToEmpty minutesToFull'.split()
INFO = ('subId versionInfo softwareVersion hardwareVersion'.split() + BATTERY +
        'deviceType firmwareInfo hardwareInfo cycleCount fullCapacity manufacturer warningBits charger microphone pogoPin'.split())
RECORDS = {
    'getCameraState': ('<4xQ76x', ['status']),
    'getTFCardStatus': ('<ii', ['state', 'reason']),
    'getTFCardUsedStatus': ('<QQQQ', ['sectorSize', 'total', 'available', 'used']),
    'getBatteryInfo': ('<BBIIBHhHHHHHHHHHIBBB', INFO),
    'getBatteryStatus': ('<BHhHHH', BATTERY),
    'getGimbalDeviceInfo': ('<4xB3xB3xB51x', ['rollLink', 'pitchLink', 'yawLink']),
    'fetchGimbalState': ('<21xB4x', ['movementState']),
    'getGimbalESCDevicesCheck': ('<B', ['boards']),
}
VERSIONS = ('softwareVersion', 'hardwareVersion')
BOARDS = ('yaw', 'pitch', 'roll', 'main')  # bit 0 first


def decoded(command, data):
    if command == 'ReadEEPROM':
        return {'count': struct.unpack_from('<H', data)[0], 'bytes': data[2:].hex(' ')}
    if command not in RECORDS:
        return {}
    layout, names = RECORDS[command]
    values = dict(zip(names, struct.unpack(layout, data)))
    for name in VERSIONS:
        if name in values:
            values[name] = '.'.join(str(part) for part in values[name].to_bytes(4, 'big'))
    if 'boards' in values:
        return {board: bool(values['boards'] >> bit & 1) for bit, board in enumerate(BOARDS)}
    return values


def result(code, data, reply_data):
    """What the station makes of a reply. `reply_data`: what the table of commands says of them."""
    if code != 0 or reply_data.startswith('any'):
        return code
    if reply_data.startswith('count'):
        fits = len(data) >= 2 and struct.unpack_from('<H', data)[0] + 2 == len(data)
    else:
        fits = len(data) == (0 if reply_data.startswith('none') else int(reply_data.split()[0]))
    return 0 if fits else -1


def number(value):
    return int(value, 16) if isinstance(value, str) and value.startswith('0x') else value


class tst_ProtocolDocument(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.vectors = protocolVectors.load(arguments.project / 'docs')
        cls.client = imported('minimal_client')
        cls.commands = {}
        cls.reply_data = {}
        rows = re.findall(r'^\| `(\w+)` \| (\d) \w+ \| (\d) \| (0x\w+) \|.*\| ([^|]+) \|$', document(), re.MULTILINE)
        for name, receiver, command_set, command_id, reply_data in rows:
            cls.commands[name] = (int(receiver), int(command_set), int(command_id, 16))
            cls.reply_data[name] = reply_data

    def test_every_command_has_an_exchange(self):
        self.assertLessEqual(14, len(self.commands))
        self.assertEqual(set(self.commands), {exchange['command'] for exchange in self.vectors['exchanges']})

    def test_tables_show_the_vectors(self):
        for table in protocolVectors.rendered(self.vectors):
            self.assertIn(table, document())

    def test_requests(self):
        for sequence, exchange in enumerate(self.vectors['exchanges'], 1):
            expected = bytes.fromhex(exchange['request'])
            made = self.client.request(sequence, *self.commands[exchange['command']], expected[12:])
            self.assertEqual(expected.hex(' '), made.hex(' '), exchange['what'])

    def test_replies(self):
        for exchange in self.vectors['exchanges'] + self.vectors['judgedReplies']:
            command = exchange['command']
            with self.subTest(command=command, what=exchange['what']):
                code, data = self.client.reply(bytes.fromhex(exchange['reply']), *self.commands[command][1:])
                self.assertEqual(exchange['result'], result(code, data, self.reply_data[command]))
                if 'decoded' in exchange and command in [*RECORDS, 'ReadEEPROM']:
                    expected = {name: number(value) for name, value in exchange['decoded'].items()}
                    self.assertEqual(expected, decoded(command, data))

    def test_dropped_by_the_client(self):
        for entry in self.vectors['droppedDatagrams']:
            if entry['by'] != 'camera':
                self.assertIsNone(self.client.reply(bytes.fromhex(entry['bytes']), 6, 0x022), entry['what'])

    def test_dropped_by_the_minimal_camera(self):
        camera = imported('minimal_camera')
        for entry in self.vectors['droppedDatagrams']:
            if entry['by'] != 'station':
                self.assertIsNone(camera.answer(bytes.fromhex(entry['bytes'])), entry['what'])

    def test_block_checksum(self):
        scope = {}
        exec(next(block for block in code_blocks('python') if 'def block_checksum' in block), scope)
        for entry in self.vectors['checksums']['block']:
            self.assertEqual(number(entry['checksum']), scope['block_checksum'](bytes.fromhex(entry['bytes'])))

    def test_client_with_the_emulated_camera(self):
        with emulated_camera():
            self.assertEqual(['registered: 0', 'status: 0x8001b', 'battery: 87 %, 3850 mV, -250 mA'], client_output())

    def test_client_with_the_minimal_camera(self):
        with minimal_camera():
            self.assertEqual(['registered: 0', 'status: 0x8001a', 'battery: 87 %, 3850 mV, -250 mA'], client_output())

    def test_station_with_the_minimal_camera(self):
        # The settings lie beside the program.
        program = shutil.copy(arguments.station, arguments.work / 'KestDetector')
        (arguments.work / 'option.ini').write_text(code_blocks('ini')[0], encoding='utf-8')
        results = arguments.work / 'results'
        shutil.rmtree(results, ignore_errors=True)
        environment = dict(os.environ, QT_QPA_PLATFORM='offscreen')
        with minimal_camera():
            run = subprocess.run([program, '--run', 'camera,battery', '--save-path', results], env=environment,
                                 stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, timeout=LIMIT)
        self.assertEqual(0, run.returncode, run.stderr)
        self.assertEqual(['Camera: OK', 'Battery: OK', 'Result: OK'], run.stdout.splitlines()[:3])
        folders = [folder.name for folder in (results / 'log').iterdir()]
        self.assertEqual(1, len(folders))
        self.assertRegex(folders[0], r'^\d{4}-\d{2}-\d{2}_60601F0A5F2A$')


if __name__ == '__main__':
    parser = argparse.ArgumentParser()
    for option in ('--project', '--work'):
        parser.add_argument(option, type=pathlib.Path, required=True)
    for option in ('--station', '--emulator'):
        parser.add_argument(option, required=True)
    arguments, rest = parser.parse_known_args()
    arguments.work.mkdir(parents=True, exist_ok=True)
    unittest.main(argv=[sys.argv[0], *rest])
