#!/usr/bin/env python3
"""A session manager for one client. Prints its address, then one line for each event; a line on its standard input asks
the client to log off."""
import ctypes
import select
import sys
from ctypes import CFUNCTYPE, POINTER, Structure, byref, c_char_p, c_int, c_ulong, c_void_p

ICE = ctypes.CDLL("libICE.so.6")
SM = ctypes.CDLL("libSM.so.6")

SAVE_LOCAL, SAVE_BOTH = 1, 2
INTERACT_NONE, INTERACT_ANY = 0, 2
ALL_CALLBACKS = (1 << 10) - 1

# The callbacks of a client in the order of SmsCallbacks: result and arguments after the connection and a pointer.
CALLBACKS = [
    ("register_client", c_int, [c_char_p]),
    ("interact_request", None, [c_int]),
    ("interact_done", None, [c_int]),
    ("save_yourself_request", None, [c_int] * 5),
    ("save_yourself_phase2_request", None, []),
    ("save_yourself_done", None, [c_int]),
    ("close_connection", None, [c_int, c_void_p]),
    ("set_properties", None, [c_int, c_void_p]),
    ("delete_properties", None, [c_int, c_void_p]),
    ("get_properties", None, []),
]
TYPES = {name: CFUNCTYPE(result, c_void_p, c_void_p, *arguments) for name, result, arguments in CALLBACKS}


class SmsCallbacks(Structure):
    _fields_ = [field for name, _, _ in CALLBACKS for field in ((name, TYPES[name]), (name + "_data", c_void_p))]


NEW_CLIENT = CFUNCTYPE(c_int, c_void_p, c_void_p, POINTER(c_ulong), POINTER(SmsCallbacks), POINTER(c_char_p))
ACCEPT_HOST = CFUNCTYPE(c_int, c_char_p)
IO_ERROR = CFUNCTYPE(None, c_void_p)

ICE.IceComposeNetworkIdList.restype = c_char_p
ICE.IceComposeNetworkIdList.argtypes = [c_int, c_void_p]
ICE.IceGetListenConnectionNumber.argtypes = [c_void_p]
ICE.IceSetHostBasedAuthProc.argtypes = [c_void_p, ACCEPT_HOST]
ICE.IceAcceptConnection.restype = c_void_p
ICE.IceAcceptConnection.argtypes = [c_void_p, POINTER(c_int)]
ICE.IceConnectionNumber.argtypes = [c_void_p]
ICE.IceProcessMessages.argtypes = [c_void_p, c_void_p, c_void_p]
SM.SmsGenerateClientID.restype = c_void_p
SM.SmsGenerateClientID.argtypes = [c_void_p]
SM.SmsRegisterClientReply.argtypes = [c_void_p, c_void_p]
SM.SmsSaveYourself.argtypes = [c_void_p, c_int, c_int, c_int, c_int]
for call in ("SmsInteract", "SmsSaveComplete", "SmsShutdownCancelled", "SmsDie"):
    getattr(SM, call).argtypes = [c_void_p]


def report(line):
    print(line, flush=True)


class Manager:
    """The protocol as seen by the one client."""

    def __init__(self):
        self.client = None
        self.logs_off = False

    def log_off(self):
        self.logs_off = True
        SM.SmsSaveYourself(self.client, SAVE_BOTH, True, INTERACT_ANY, False)

    def register_client(self, client, _data, _previous):
        self.client = client
        SM.SmsRegisterClientReply(client, SM.SmsGenerateClientID(client))
        SM.SmsSaveYourself(client, SAVE_LOCAL, False, INTERACT_NONE, False)
        report("registered")
        return True

    def interact_request(self, client, _data, _kind):
        report("interacts")
        SM.SmsInteract(client)

    def interact_done(self, client, _data, cancels):
        report("cancels" if cancels else "agrees")
        if cancels:
            self.logs_off = False
            SM.SmsShutdownCancelled(client)

    def save_yourself_done(self, client, _data, _success):
        if self.logs_off:
            report("ready")
            SM.SmsDie(client)
        else:
            SM.SmsSaveComplete(client)

    def close_connection(self, _client, _data, _count, _reasons):
        report("closed")


def main():
    manager = Manager()
    ignore = {name: TYPES[name](lambda *_: 0) for name, _, _ in CALLBACKS}
    callbacks = {name: TYPES[name](getattr(manager, name)) if hasattr(manager, name) else ignore[name] for name in TYPES}

    @NEW_CLIENT
    def new_client(_client, _data, mask, table, _reason):
        mask[0] = ALL_CALLBACKS
        for name, callback in callbacks.items():
            setattr(table[0], name, callback)
        return True

    accept_host = ACCEPT_HOST(lambda _host: True)
    io_error = IO_ERROR(lambda _connection: None)  # a client that has ended
    error = ctypes.create_string_buffer(256)
    count, listeners = c_int(), POINTER(c_void_p)()
    ICE.IceSetIOErrorHandler(io_error)
    if not SM.SmsInitialize(b"Test", b"1", new_client, None, accept_host, len(error), error):
        sys.exit(error.value.decode())
    if not ICE.IceListenForConnections(byref(count), byref(listeners), len(error), error):
        sys.exit(error.value.decode())
    doors = {}
    for listener in listeners[: count.value]:
        ICE.IceSetHostBasedAuthProc(listener, accept_host)
        doors[ICE.IceGetListenConnectionNumber(listener)] = listener
    report(ICE.IceComposeNetworkIdList(count, listeners).decode())

    connections = {}
    while True:
        for ready in select.select([0, *doors, *connections], [], [])[0]:
            if ready == 0:
                if not sys.stdin.buffer.raw.read(64):
                    return
                manager.log_off()
            elif ready in doors:
                connection = ICE.IceAcceptConnection(doors[ready], byref(c_int()))
                connections[ICE.IceConnectionNumber(connection)] = connection
            elif ICE.IceProcessMessages(connections[ready], None, None) != 0:
                del connections[ready]


main()
