"""The byte vectors of docs/protocol-vectors.json, and the tables that docs/protocol.md shows of them."""
import json
import pathlib

LONGEST_SHOWN = 24  # bytes of a frame in a table


def load(documents):
    return json.loads((pathlib.Path(documents) / 'protocol-vectors.json').read_text(encoding='utf-8'))


def shown(frame):
    pairs = frame.split()
    if len(pairs) <= LONGEST_SHOWN:
        return f'`{frame}`'
    return f'`{" ".join(pairs[:LONGEST_SHOWN])}` … ({len(pairs)} bytes)'


def values(decoded):
    return ', '.join(f'{name} {str(value).lower() if isinstance(value, bool) else value}'
                     for name, value in decoded.items())


def outcome(exchange):
    decoded = values(exchange.get('decoded', {}))
    return f'{exchange["result"]}' + (f': {decoded}' if decoded else '')


def table(headings, rows):
    lines = [f'| {" | ".join(headings)} |', '|' + '---|' * len(headings)]
    return '\n'.join(lines + [f'| {" | ".join(row)} |' for row in rows])


def rendered(vectors):
    """The chapter's tables as they have to stand in docs/protocol.md."""
    return [
        table(('command: what', 'request', 'reply', 'result and values'),
              [(f'`{exchange["command"]}`: {exchange["what"]}', shown(exchange['request']), shown(exchange['reply']),
                outcome(exchange)) for exchange in vectors['exchanges']]),
        table(('dropped without an answer', 'datagram', 'by'),
              [(entry['what'], shown(entry['bytes']), entry['by']) for entry in vectors['droppedDatagrams']]),
        table(('command: reply', 'reply', "station's result"),
              [(f'`{entry["command"]}`: {entry["what"]}', shown(entry['reply']), str(entry['result']))
               for entry in vectors['judgedReplies']]),
        table(('frame', 'bytes', 'fields'),
              [(entry['what'], shown(entry['bytes']),
                values({name: value for name, value in entry['fields'].items() if name != 'payload'}))
               for entry in vectors['frames']]),
    ]
