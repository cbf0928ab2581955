"""Conversations with the machine, in lines of text."""

import json
import select
import socket
import time

from waiting import PATIENCE, Mismatch, wait_for


class Lines:
    def __init__(self, path):
        self._socket = socket.socket(socket.AF_UNIX)
        wait_for(f"the machine's {path.name}", lambda: self._socket.connect_ex(str(path)) == 0)
        self._pending = b""

    def send(self, text):
        self._socket.sendall(text.encode() + b"\n")

    def receive(self, what):
        """The next line; what is awaited is told when none comes."""
        limit = time.monotonic() + PATIENCE
        while b"\n" not in self._pending:
            if not select.select([self._socket], [], [], max(limit - time.monotonic(), 0))[0]:
                raise Mismatch(f"waited in vain for {what}")
            received = self._socket.recv(65536)
            if not received:
                raise Mismatch(f"the machine ended before {what}")
            self._pending += received
        line, self._pending = self._pending.split(b"\n", 1)
        return line.decode(errors="replace").rstrip("\r")


class Monitor:
    """QEMU's own commands and events."""

    def __init__(self, path):
        self._lines = Lines(path)
        self._events = []
        self._lines.receive("the monitor's greeting")
        self.ask("qmp_capabilities")

    def ask(self, command, **arguments):
        answer = self._answer(command, arguments)
        if "error" in answer:
            raise Mismatch(f"{command}: {answer['error']['desc']}")
        return answer["return"]

    def does(self, command, **arguments):
        return "return" in self._answer(command, arguments)

    def _answer(self, command, arguments):
        self._lines.send(json.dumps({"execute": command, "arguments": arguments}))
        while True:
            message = self._next(f"the answer to {command}")
            if "event" not in message:
                return message

    def wait_for_event(self, event):
        while event not in self._events:
            self._next(f"the event {event}")
        self._events.remove(event)

    def _next(self, what):
        message = json.loads(self._lines.receive(what))
        if "event" in message:
            self._events.append(message["event"])
        return message
