"""A voice for the Orca screen reader that makes no sound and writes down what Orca says.

Orca loads it as its speech factory. Each line of the file that the environment variable
VEMRA_RECORDED_VOICE names is a JSON list: ["say", text], or ["stop"] when Orca interrupts its speech.
"""

import json
import os

from orca import speechserver

_voice = None


def _write(*line):
    with open(os.environ["VEMRA_RECORDED_VOICE"], "a", encoding="utf-8") as out:
        out.write(json.dumps(line) + "\n")


class SpeechServer(speechserver.SpeechServer):
    """Orca's one voice."""

    @staticmethod
    def get_factory_name():
        return "Recorded voice"

    @classmethod
    def get_speech_servers(cls):
        return [cls.get_speech_server()]

    @classmethod
    def get_speech_server(cls, _info=None):
        global _voice
        _voice = _voice or cls()
        return _voice

    @classmethod
    def shutdown_active_servers(cls):
        pass

    def get_info(self):
        return ["Recorded voice", "recorded"]

    def get_voice_families(self):
        return []

    def speak(self, text=None, acss=None, interrupt=True):
        if text:
            _write("say", text)

    def speak_character(self, character, acss=None):
        _write("say", character)

    def speak_key_event(self, event, acss=None):
        pass

    def say_all(self, utterances, _progress):
        for context, _acss in utterances:
            _write("say", context.utterance)

    def stop(self):
        _write("stop")

    def is_responsive(self, timeout=2.0):
        return True

    # The names that Orca 43 calls; Orca 48 still calls a few of them.
    getFactoryName = get_factory_name
    getSpeechServers = get_speech_servers
    getSpeechServer = get_speech_server
    shutdownActiveServers = shutdown_active_servers
    getInfo = get_info
    getVoiceFamilies = get_voice_families
    speakCharacter = speak_character
    speakKeyEvent = speak_key_event
    sayAll = say_all
