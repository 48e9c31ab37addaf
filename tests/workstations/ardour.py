"""Ardour with a session of our own: no sound hardware, no window that asks anything, its remote protocol switched on."""

import os
import subprocess
import xml.etree.ElementTree as xml

from failure import Failure
from installed import version_of
from remote import Remote

_NAME = "Take"
_TRACK = "Voice"
_SAMPLE_RATE = 48000
_PATIENCE_SECONDS = 120

_MAKE_SESSION = """
AudioEngine:set_backend("None (Dummy)", "", "")
local session = create_session("{folder}", "{name}", {rate})
assert(session)
session:new_audio_track(1, 2, nil, 1, "{track}", ARDOUR.PresentationInfo.max_order, ARDOUR.TrackMode.Normal, true)
session:save_state("")
close_session()
quit()
"""

# The back end without hardware is hidden unless asked for; the state of it is what its dialog would have noted.
_CONFIGURATION = """<?xml version="1.0" encoding="UTF-8"?>
<Ardour>
  <Config>
    <Option name="try-autostart-engine" value="1"/>
    <Option name="hide-dummy-backend" value="0"/>
  </Config>
  <Extra>
    <AudioMIDISetup>
      <EngineStates>
        <State backend="None (Dummy)" driver="Normal Speed" device="Silence" input-device="" output-device=""
          sample-rate="48000" buffer-size="1024" n-periods="0" input-latency="0" output-latency="0" input-channels="0"
          output-channels="0" active="1" use-buffered-io="0" midi-option="1 in, 1 out" lru="1"><MIDIDevices/></State>
      </EngineStates>
    </AudioMIDISetup>
  </Extra>
</Ardour>
"""


class Ardour:
    """Runs from entering to leaving; every file of it lies in the folder."""

    name = "Ardour"

    def __init__(self, folder):
        self._folder = folder
        self._session = folder / "session"
        self._environment = dict(os.environ, HOME=str(folder / "home"), XDG_CONFIG_HOME=str(folder / "config"),
                                 XDG_CACHE_HOME=str(folder / "cache"), ARDOUR_TRY_AUTOSTART_ENGINE="1")
        self.process = None
        self.remote = None

    def __enter__(self):
        self._configure()
        self._make_session()
        log = (self._folder / "ardour.log").open("w")
        self.process = subprocess.Popen(["ardour", self.session_file()], env=self._environment, stdout=log, stderr=log)
        try:
            self.remote = Remote(_PATIENCE_SECONDS, self.process)
        except BaseException:
            self._end()
            raise
        return self

    def __exit__(self, *_):
        self._end()

    def version(self):
        return version_of("ardour")

    def session_file(self, snapshot=_NAME):
        return self._session / f"{snapshot}.ardour"

    def saved_marks(self):
        """The names of the locations in the saved session."""
        return [location.get("name") for location in self._saved().iter("Location")]

    def save_and_count_regions(self):
        """How many pieces of sound the track has, as a session has them that is saved now."""
        before = self.session_file().stat().st_mtime_ns
        self.remote.save()
        self.remote.need(lambda: self.session_file().stat().st_mtime_ns != before, "the session was not saved")
        return sum(len(playlist.findall("Region")) for playlist in self._saved().find("Playlists")
                   if playlist.get("name", "").startswith(_TRACK))

    def _saved(self):
        return xml.parse(self.session_file()).getroot()

    def _configure(self):
        (self._folder / "home").mkdir()
        configuration = self._folder / "config/ardour7"
        configuration.mkdir(parents=True)
        (configuration / "config").write_text(_CONFIGURATION)
        # Without this file the first start begins with a questionnaire.
        (configuration / ".a7").touch()

    def _make_session(self):
        script = self._folder / "session.lua"
        script.write_text(_MAKE_SESSION.format(folder=self._session, name=_NAME, rate=_SAMPLE_RATE, track=_TRACK))
        made = subprocess.run(["ardour7-lua", script], env=self._environment, timeout=_PATIENCE_SECONDS, text=True,
                              capture_output=True)
        if not self.session_file().exists():
            raise Failure(f"no session was made: {made.stdout}{made.stderr}")
        session = xml.parse(self.session_file())
        for protocol in session.getroot().iter("Protocol"):
            if protocol.get("name") == "Open Sound Control (OSC)":
                protocol.set("active", "1")
        session.write(self.session_file(), encoding="UTF-8", xml_declaration=True)

    def _end(self):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()
