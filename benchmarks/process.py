"""What a running process takes of the machine, as the kernel tells."""

import os

_TICKS = os.sysconf("SC_CLK_TCK")


class Process:
    def __init__(self, pid):
        self.pid = pid

    def cpu_seconds(self):
        with open(f"/proc/{self.pid}/stat") as file:
            fields = file.read().rsplit(") ", 1)[1].split()
        return (int(fields[11]) + int(fields[12])) / _TICKS

    def wake_ups(self):
        total = 0
        for thread in os.listdir(f"/proc/{self.pid}/task"):
            with open(f"/proc/{self.pid}/task/{thread}/status") as file:
                total += next(int(line.split()[1]) for line in file if line.startswith("voluntary_ctxt_switches"))
        return total

    def proportional_mib(self):
        """Its memory, what it shares with others divided among them."""
        return self._memory_mib("Pss:")

    def resident_mib(self):
        return self._memory_mib("Rss:")

    def private_mib(self):
        """What would be free if it ended."""
        return self._memory_mib("Private_Clean:", "Private_Dirty:")

    def descriptors(self):
        return len(os.listdir(f"/proc/{self.pid}/fd"))

    def threads(self):
        return len(os.listdir(f"/proc/{self.pid}/task"))

    def _memory_mib(self, *names):
        with open(f"/proc/{self.pid}/smaps_rollup") as file:
            return sum(int(line.split()[1]) for line in file if line.startswith(names)) / 1024
