#!/usr/bin/python3
"""Prints the camera's WiFi name and the battery's second text in a record, each as the hexadecimal of its UTF-8, a line.

    readTexts.py RECORD     RECORD ends in .json or .xml
"""
import json
import pathlib
import sys
import xml.etree.ElementTree


def of_json(path):
    run = json.loads(path.read_bytes().decode("utf-8", errors="strict"))
    return run["camera"]["wifiName"], run["components"][1]["items"][1]["detail"]


def of_xml(path):
    root = xml.etree.ElementTree.parse(path).getroot()
    name = root.find(".//property[@name='camera.wifiName']").get("value")
    return name, root.find(".//testcase[@name='battery.info']/failure").text


def main():
    path = pathlib.Path(sys.argv[1])
    for text in (of_json if path.suffix == ".json" else of_xml)(path):
        print((text or "").encode("utf-8").hex())


if __name__ == "__main__":
    main()
