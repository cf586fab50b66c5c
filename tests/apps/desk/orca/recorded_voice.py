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
    def getFactoryName():
        return "Recorded voice"

    @staticmethod
    def getSpeechServers():
        return [SpeechServer.getSpeechServer()]

    @staticmethod
    def getSpeechServer(_info=None):
        global _voice
        _voice = _voice or SpeechServer()
        return _voice

    @staticmethod
    def shutdownActiveServers():
        pass

    def getInfo(self):
        return ["Recorded voice", "recorded"]

    def getVoiceFamilies(self):
        return []

    def speak(self, text=None, acss=None, interrupt=True):
        if text:
            _write("say", text)

    def speakCharacter(self, character, acss=None):
        _write("say", character)

    def speakKeyEvent(self, event, acss=None):
        pass

    def sayAll(self, utteranceIterator, progressCallback):
        for context, _acss in utteranceIterator:
            _write("say", context.utterance)

    def stop(self):
        _write("stop")
