"""A voice that says nothing, in place of Speech Dispatcher's: a test reads what a screen reader would say in its
log, and needs no sound."""


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

    def __getattr__(self, command):
        return lambda *_values, **_more: ()
