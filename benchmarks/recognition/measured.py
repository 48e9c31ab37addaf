"""Runs a command, and writes to a descriptor what it took: seconds of the processor, and bytes of memory at most.

A process counts as its own the memory that whoever started it had then. So the large rig has this small program, which needs less
than what it measures, start the large ones.
"""

import json
import os
import resource
import subprocess
import sys


def main():
    descriptor, *command = sys.argv[1:]
    status = subprocess.run(command).returncode
    used = resource.getrusage(resource.RUSAGE_CHILDREN)
    os.write(int(descriptor), json.dumps([used.ru_utime + used.ru_stime, used.ru_maxrss * 1024]).encode())
    return status if status >= 0 else 128 - status


def measured(command, **more):
    """Runs it; seconds of the processor, bytes at most."""
    read, write = os.pipe()
    with os.fdopen(read, "rb") as result:
        try:
            subprocess.run([sys.executable, __file__, str(write), *map(str, command)], pass_fds=[write], check=True, **more)
        finally:
            os.close(write)
        return json.loads(result.read())


if __name__ == "__main__":
    sys.exit(main())
