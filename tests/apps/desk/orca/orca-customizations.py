"""Settings of Orca for the transcript: its user preferences folder holds this file."""

from orca import settings

settings.speechServerFactory = "recorded_voice"
settings.enableSpeech = True
settings.enableBraille = False
settings.enableBrailleMonitor = False
settings.enableSound = False
settings.enableKeyEcho = False
settings.enableEchoByCharacter = False
settings.enableEchoByWord = False
