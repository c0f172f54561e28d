"""A voice without sound in place of Speech Dispatcher's: what a screen reader gives it to speak goes to a file, a
line each, as soon as it comes. The reader's own log holds the same, but comes in blocks."""
import html
import os
import re


class _Names:
    def __getattr__(self, name):
        return name.lower()


CallbackType = _Names()
DataMode = _Names()
Priority = _Names()
PunctuationMode = _Names()


class SSIPError(Exception):
    pass


class SSIPCommunicationError(SSIPError):
    pass


class SSIPCommandError(SSIPError):
    pass


class SSIPClient:
    def __init__(self, *_about, **_more):
        pass

    def speak(self, text, **_more):
        words = html.unescape(re.sub("<[^>]*>", "", text)).strip()
        with open(os.environ["GRIDWRIGHT_SPOKEN"], "a", encoding="utf-8") as spoken:
            spoken.write(words.replace("\n", " ") + "\n")

    def __getattr__(self, command):
        return lambda *_values, **_more: ()
