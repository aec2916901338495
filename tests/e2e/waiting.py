"""Waiting for conditions."""

import time


def wait_for(condition, what, seconds=60):
    """The first true value of `condition`; raises TimeoutError, saying what was awaited, past the limit."""
    end = time.monotonic() + seconds
    while not (value := condition()):
        if time.monotonic() > end:
            raise TimeoutError(f"waited {seconds} s for {what}")
        time.sleep(0.02)
    return value
