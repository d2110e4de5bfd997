import socket
import struct
import unittest

from phone_case import OTHER_UDID, SYSTEM_BUID, Ended, PhoneCase, receive


class Listing(PhoneCase):
    PHONES = [{}, {"udid": OTHER_UDID}]

    def udids(self):
        devices = self.mux_call({"MessageType": "ListDevices"})["DeviceList"]
        return [device["Properties"]["SerialNumber"] for device in devices]

    def test_names_every_phone(self):
        self.assertEqual(self.udids(), [self.phone.udid, OTHER_UDID])

    def test_leaves_out_a_phone_that_left(self):
        self.tell("detach")
        self.assertEqual(self.udids(), [OTHER_UDID])
        self.tell(f"@{OTHER_UDID} detach")
        self.assertEqual(self.udids(), [])
        self.tell("attach")
        self.assertEqual(self.udids(), [self.phone.udid])

    def test_answers_under_the_tag_of_the_request(self):
        self.mux_call({"MessageType": "ReadBUID"})
        self.assertEqual(self.tag, 7)

    def test_tells_listeners_of_every_change(self):
        listener = self.mux()
        self.assertEqual(self.mux_call({"MessageType": "Listen"}, listener)["Number"], 0)
        first = [self.mux_receive(listener) for _ in self.PHONES]
        self.assertEqual([message["MessageType"] for message in first], ["Attached", "Attached"])
        self.tell("detach")
        self.assertEqual(self.mux_receive(listener), {"MessageType": "Detached", "DeviceID": first[0]["DeviceID"]})
        self.tell("attach")
        again = self.mux_receive(listener)
        self.assertEqual(again["Properties"]["SerialNumber"], self.phone.udid)
        self.assertNotIn(again["DeviceID"], [message["DeviceID"] for message in first])

    def test_connects_to_the_phone_that_was_asked_for(self):
        for phone in self.daemon.phones:
            reply = self.lockdown(phone).call("GetValue", Key="UniqueDeviceID")
            self.assertEqual(reply["Value"], phone.udid)


class PairRecords(PhoneCase):
    PHONES = [{"paired": False}]

    def read(self):
        return self.mux_call({"MessageType": "ReadPairRecord", "PairRecordID": self.phone.udid})

    def test_are_kept_until_they_are_deleted(self):
        self.assertEqual(self.read(), {"MessageType": "Result", "Number": 2})
        save = {"MessageType": "SavePairRecord", "PairRecordID": self.phone.udid, "PairRecordData": b"record"}
        self.assertEqual(self.mux_call(save)["Number"], 0)
        self.assertEqual(self.read()["PairRecordData"], b"record")
        delete = {"MessageType": "DeletePairRecord", "PairRecordID": self.phone.udid}
        self.assertEqual(self.mux_call(delete)["Number"], 0)
        self.assertEqual(self.read()["Number"], 2)
        self.assertEqual(self.mux_call(delete)["Number"], 2)

    def test_exist_for_a_phone_that_was_paired(self):
        self.tell("pair")
        self.assertIn(b"HostPrivateKey", self.read()["PairRecordData"])

    def test_go_with_the_number_of_the_computer(self):
        self.assertEqual(self.mux_call({"MessageType": "ReadBUID"})["BUID"], SYSTEM_BUID)


class Connecting(PhoneCase):
    def connect_number(self, device, port):
        return self.mux_call({"MessageType": "Connect", "DeviceID": device, "PortNumber": socket.htons(port)})["Number"]

    def test_fails_for_an_unknown_phone(self):
        self.assertEqual(self.connect_number(99, 62078), 2)

    def test_fails_for_a_phone_that_left(self):
        number = self.phone.device_id
        self.tell("detach")
        self.assertEqual(self.connect_number(number, 62078), 2)
        self.tell("attach")
        self.assertEqual(self.connect_number(number, 62078), 2)

    def test_fails_for_a_port_without_service(self):
        self.assertEqual(self.connect_number(self.phone.device_id, 80), 3)

    def test_works_once_for_a_started_service(self):
        port = self.start_service()["Port"]
        self.assertEqual(self.connect_number(self.phone.device_id, port), 0)
        self.assertEqual(self.connect_number(self.phone.device_id, port), 3)

    def test_may_be_tried_again_on_the_same_connection(self):
        mux = self.mux()
        request = {"MessageType": "Connect", "DeviceID": self.phone.device_id, "PortNumber": socket.htons(80)}
        self.assertEqual(self.mux_call(request, mux)["Number"], 3)
        self.assertEqual(len(self.mux_call({"MessageType": "ListDevices"}, mux)["DeviceList"]), 1)

    def test_may_be_cut_and_stalled(self):
        self.tell("fault cut service=usbmux operation=Connect")
        with self.assertRaises(Ended):
            self.connect_number(self.phone.device_id, 62078)
        self.assertEqual(self.connect_number(self.phone.device_id, 62078), 0)

    def test_an_unknown_message_is_a_bad_command(self):
        self.assertEqual(self.mux_call({"MessageType": "Dance"})["Number"], 1)

    def test_nonsense_ends_the_connection(self):
        for nonsense in (b"x" * 16, struct.pack("<IIII", 4, 1, 8, 1), struct.pack("<IIII", 20, 1, 8, 1) + b"none"):
            mux = self.mux()
            mux.sendall(nonsense)
            with self.assertRaises(Ended):
                receive(mux, 1)


unittest.main()
