"""Waiting for conditions."""

import time


class Timeout(Exception):
    pass


def wait_for(condition, what, seconds=60):
    """The first true value of `condition`; raises Timeout, saying what was awaited, past the limit."""
    end = time.monotonic() + seconds
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise Timeout(f"waited {seconds} s for {what}")
        time.sleep(0.02)
