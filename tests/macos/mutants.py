"""mutants.py ADAPTERS BUILD: puts one fault after the other into a copy of an adapter, builds the adapters' tests with it out
of BUILD's objects, and ends with 1 when the tests still pass."""

import json
import os
import pathlib
import shlex
import subprocess
import sys
import tempfile

# What is wrong; in which adapter; what stands there, and what stands there instead.
FAULTS = [
    ('a cancelled session still delivers', 'MacSpeechRecognition',
     'lock(mutex_);\n            task = task_;\n            end();\n', 'lock(mutex_);\n            task = task_;\n'),
    ('a finished session that nobody holds is lost', 'MacSpeechRecognition', 'task_ = task;\n        }\n    }\n\n    /// On', '}\n    }\n\n    /// On'),
    ('a session that has ended keeps its task', 'MacSpeechRecognition', '        isLive_ = false;\n        task_ = nil;', '        isLive_ = false;'),
    ('results wait for the main queue', 'MacSpeechRecognition', '        recognizer_.queue = queue;\n', ''),
    ('what is raised is no failure', 'MacAudioEngine', 'return reason.isEmpty() ? fromNSString(exception.name) : reason;', 'static_cast<void>(reason);\n        return std::nullopt;'),
    ('the tap stays', 'MacAudioEngine', '[engine_.inputNode removeTapOnBus:inputBus];', 'static_cast<void>(engine_.inputNode);'),
    ('the device has another size', 'MacAudioEngine', 'sizeof device)', 'sizeof(double))'),
    ('nobody is told that the input went', 'MacAudioEngine', '            captureEnd_->tell(reason);\n', ''),
    ('a running engine is started anew', 'MacAudioEngine', '!activity_ || engine_.running', '!activity_'),
    ('a stopped engine is started anew', 'MacAudioEngine', '!activity_ || engine_.running', 'engine_.running'),
    ('a tap of the former format stays', 'MacAudioEngine',
     "            // It was connected with the format that the input had.\n            disconnectTap();\n", ''),
    ('the engine is touched where word comes', 'MacAudioEngine', 'mainQueue.post(arrived);', 'static_cast<void>(mainQueue); auto now = arrived; now();'),
    ('word reaches an engine that is gone', 'MacAudioEngine', '            gate_->close();\n            inputs_', '            inputs_'),
    ('the old engine is observed on', 'MacAudioEngine', '        configuration_.reset();\n        deviceInForce_', '        configuration_.release();\n        deviceInForce_'),
    ('the program naps while it listens', 'MacAudioEngine', '            if (!activity_) {\n', '            if (false) {\n'),
    ('the program is kept awake for ever', 'MacAudioEngine', '            activity_.reset();\n', ''),
    ('another input than the chosen one is listened to', 'MacAudioEngine',
     '            if (!hasDeviceOfItsOwn_) {\n                makeEngine', '            if (true) {\n                makeEngine'),
    ('the old engine ends where word of it comes', 'MacAudioEngine', '        retireEngine();\n', ''),
    ('the device is set on a running engine', 'MacAudioEngine', '            if (engine_.running) {\n                stop', '            if (false) {\n                stop'),
    ('the device is set at each start', 'MacAudioEngine', 'if (device == deviceInForce_) {', 'if (false) {'),
    ('a device that failed is not set again', 'MacAudioEngine', '            if (failure) {\n                deviceInForce_.reset();', '            if (failure) {'),
    ('inputs that come are not told', 'MacAudioEngine', '                inputs_.push_back', '                if (property == 0) inputs_.push_back'),
    ('a session outlives its sound', 'MacSpeechRecognition', '                        live->fail(reason);\n', '                        static_cast<void>(reason);\n'),
    ('a Boolean is an integer', 'MacDefaultsStore', 'CFGetTypeID(reference) == CFBooleanGetTypeID()', 'CFGetTypeID(reference) == 0'),
    ('an answer comes after the end', 'MacPermissions', '{ gate_->close(); }', '= default;'),
    ('a notification is not seen in front', 'MacNotifier', '            [UNUserNotificationCenter currentNotificationCenter].delegate = presenter_;\n', ''),
    ('scripts run at once', 'MacScriptHost', '        const std::lock_guard turn(scriptTurn());\n', '        static_cast<void>(scriptTurn());\n'),
    ('there is no pool', 'MacScriptHost', '        @autoreleasepool {', '        {'),
    ('a description is not released', 'MacTrust', '            AEDisposeDesc(&descriptor_);\n', ''),
]


def parts(command):
    """The words of a build command, without the changes of folder around it."""
    return [word for word in shlex.split(command.replace('&&', ' ')) if word != ':']


def main():
    adapters, build = pathlib.Path(sys.argv[1]), sys.argv[2]
    compiled = {pathlib.Path(entry['file']).stem: entry for entry in json.loads(
        subprocess.run(['ninja', '-C', build, '-t', 'compdb'], check=True, capture_output=True, text=True).stdout)
        if entry['file'].endswith('.mm')}
    link = parts(subprocess.run(['ninja', '-C', build, '-t', 'commands', 'adapters_test'], check=True,
                                capture_output=True, text=True).stdout.strip().split('\n')[-1])
    environment = dict(os.environ, ASAN_OPTIONS='detect_stack_use_after_return=1')
    survivors = 0
    with tempfile.TemporaryDirectory() as scratch:
        for what, adapter, there, instead in FAULTS:
            text = (adapters / f'{adapter}.mm').read_text()
            if text.count(there) != 1:
                sys.exit(f'"{what}" cannot be put into {adapter}.mm')
            copy, made, program = (f'{scratch}/{adapter}{end}' for end in ('.mm', '.o', ''))
            pathlib.Path(copy).write_text(text.replace(there, instead))
            entry = compiled[adapter]
            words = shlex.split(entry['command'])
            words = [copy if word == entry['file'] else made if word == entry['output'] else word for word in words]
            subprocess.run(words + ['-Wno-error', '-g0'], cwd=build, check=True)
            words = [made if word == entry['output'] else program if word == 'adapters_test' else word for word in link]
            subprocess.run(words, cwd=build, check=True)
            try:
                passed = subprocess.run([program, '--gtest_brief=1'], capture_output=True, env=environment, timeout=60).returncode == 0
            except subprocess.TimeoutExpired:
                passed = False
            if passed:
                survivors += 1
                print(f'{adapter}.mm: nobody notices that {what}')
    if survivors:
        sys.exit(1)
    print(f'{len(FAULTS)} faults were noticed')


main()
