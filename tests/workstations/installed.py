"""What Debian says of an installed program."""

import subprocess


def version_of(package):
    """As its makers count, without what Debian puts before and after."""
    version = subprocess.run(["dpkg-query", "--show", "--showformat=${Version}", package], check=True, text=True,
                             capture_output=True).stdout
    return version.split(":")[-1].split("+")[0]
