"""Waiting for what a person would wait for: a condition, with a limit, never a fixed time."""

import os
import time

PATIENCE = float(os.environ.get("TOUR_PATIENCE", "30"))  # seconds for any one thing to happen


class Mismatch(Exception):
    """The program did not do, or did not show, what it should."""


def wait_for(what, condition, seconds=None):
    """The first true result of condition(), asked again and again until the patience is over."""
    limit = time.monotonic() + (seconds or PATIENCE)
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > limit:
            raise Mismatch(f"waited in vain for {what}")
        time.sleep(0.04)


def check(what, found, expected):
    if found != expected:
        raise Mismatch(f"{what}:\n  found    {found!r}\n  expected {expected!r}")
