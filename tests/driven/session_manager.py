# SPDX-FileCopyrightText: Lexivore contributors
# SPDX-License-Identifier: MIT
"""The session manager of an X desktop (XSMP), as far as a logout needs it."""

import ctypes
import os
import queue
import select
import threading

from ctypes import CFUNCTYPE, POINTER, Structure, byref, c_char_p, c_int, c_ulong, c_void_p

ICE = ctypes.CDLL("libICE.so.6")
SM = ctypes.CDLL("libSM.so.6")
for library, names in ((ICE, ("IceAcceptConnection",)), (SM, ("SmsGenerateClientID",))):
    for name in names:
        getattr(library, name).restype = c_void_p
ICE.IceComposeNetworkIdList.restype = c_char_p

SAVE_LOCAL, SAVE_BOTH = 1, 2
INTERACT_NONE, INTERACT_ANY = 0, 2
ALL_CALLBACKS = 0x3FF

Register = CFUNCTYPE(c_int, c_void_p, c_void_p, c_void_p)
Done = CFUNCTYPE(None, c_void_p, c_void_p, c_int)
# The others differ in what follows the connection, which nobody reads here.
Other = CFUNCTYPE(None, c_void_p, c_void_p)


class Callbacks(Structure):
    """SmsCallbacks, each with the data that it gets."""
    _fields_ = [("register_client", Register), ("d0", c_void_p), ("interact_request", Other), ("d1", c_void_p),
                ("interact_done", Other), ("d2", c_void_p), ("save_yourself_request", Other), ("d3", c_void_p),
                ("phase2_request", Other), ("d4", c_void_p), ("save_yourself_done", Done), ("d5", c_void_p),
                ("close_connection", Other), ("d6", c_void_p), ("set_properties", Other), ("d7", c_void_p),
                ("delete_properties", Other), ("d8", c_void_p), ("get_properties", Other), ("d9", c_void_p)]


NewClient = CFUNCTYPE(c_int, c_void_p, c_void_p, POINTER(c_ulong), POINTER(Callbacks), c_void_p)
Gone = CFUNCTYPE(None, c_void_p)
AllowsHost = CFUNCTYPE(c_int, c_char_p)


class SessionManager:
    """Serves from a thread of its own, for as long as the block runs. Programs find it by SESSION_MANAGER."""

    def __enter__(self):
        self.clients = []
        self.done = []  # one "whether it succeeded" for each save that a client finished
        self._connections = []
        self._wanted = queue.SimpleQueue()  # the libraries know no threads: all calls come from the one that serves
        self._stops = False
        self._kept = [NewClient(self._on_new_client), AllowsHost(lambda _host: 1), Register(self._on_register),
                      Done(self._on_done), Other(lambda *_: None), Gone(lambda _connection: None)]
        # Without one the library ends this process when a client ends.
        ICE.IceSetIOErrorHandler(self._kept[5])
        error = ctypes.create_string_buffer(256)
        assert SM.SmsInitialize(b"test", b"1", self._kept[0], None, self._kept[1], len(error), error), error.value
        count, listeners = c_int(), POINTER(c_void_p)()
        assert ICE.IceListenForConnections(byref(count), byref(listeners), len(error), error), error.value
        self._listeners = [c_void_p(listeners[i]) for i in range(count.value)]
        for listener in self._listeners:
            ICE.IceSetHostBasedAuthProc(listener, self._kept[1])
        os.environ["SESSION_MANAGER"] = ICE.IceComposeNetworkIdList(count, listeners).decode()
        self._thread = threading.Thread(target=self._serve, daemon=True)
        self._thread.start()
        return self

    def __exit__(self, *_):
        self._stops = True
        self._thread.join()
        del os.environ["SESSION_MANAGER"]

    def ask_to_save(self):
        """As before a logout, which the user may still call off."""
        self.done.clear()
        self._wanted.put(lambda: SM.SmsSaveYourself(self.clients[-1], SAVE_BOTH, 1, INTERACT_ANY, 0))

    def call_off(self):
        self._wanted.put(lambda: SM.SmsShutdownCancelled(self.clients[-1]))

    def end_session(self):
        self._wanted.put(lambda: SM.SmsDie(self.clients[-1]))

    def _serve(self):
        while not self._stops:
            while not self._wanted.empty():
                self._wanted.get()()
            numbers = {ICE.IceGetListenConnectionNumber(listener): listener for listener in self._listeners}
            numbers |= {ICE.IceConnectionNumber(connection): connection for connection in self._connections}
            for number in select.select(list(numbers), [], [], 0.05)[0]:
                self._read(numbers[number])

    def _read(self, source):
        if source not in self._listeners:
            if ICE.IceProcessMessages(source, None, None) != 0:
                self._connections.remove(source)
            return
        status = c_int()
        connection = ICE.IceAcceptConnection(source, byref(status))
        if connection:
            self._connections.append(c_void_p(connection))

    def _on_new_client(self, _connection, _data, mask, callbacks, _reason):
        _, _, register, done, other, _ = self._kept
        mask[0] = ALL_CALLBACKS
        for name, kind in Callbacks._fields_:
            if kind is not c_void_p:
                setattr(callbacks[0], name, {Register: register, Done: done, Other: other}[kind])
        return 1

    def _on_register(self, connection, _data, previous):
        connection = c_void_p(connection)
        if previous:
            return 0  # of a session that was restored, which there is none of
        SM.SmsRegisterClientReply(connection, c_void_p(SM.SmsGenerateClientID(connection)))
        SM.SmsSaveYourself(connection, SAVE_LOCAL, 0, INTERACT_NONE, 0)
        self.clients.append(connection)
        return 1

    def _on_done(self, connection, _data, success):
        self.done.append(bool(success))
        SM.SmsSaveComplete(c_void_p(connection))
